#include "doors/frmKEY.h"
#include "doors/frmKeyProperties.h"
#include "platform/RuntimeFailure.h"
#include "support/Bench.h"
#include "support/Corpus.h"
#include "users/DoorPanel.h"
#include "users/UserOperations.h"
#include "users/UserPanel.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

namespace {

const QString kDays = QStringLiteral("d/M/yyyy");

/// What stands before the first mark, and what stands behind it.
std::pair<QString, QString> halves(const QString &text, QChar mark = u' ')
{
    const QString first = text.section(mark, 0, 0);
    return {first, text.mid(first.size() + 1)};
}

template <class Value> Value among(const QMap<QString, Value> &known, const QString &name)
{
    return known.contains(name) ? known[name]
                                : throw std::runtime_error("unknown: " + name.toStdString());
}

/// The screens on a fresh database, worked and looked at by the names of their controls, as a
/// script of tests/corpus/screens says it; docs/corpus.md tells the verbs. It is 1 December 2026.
class Stage : Bench {
public:
    Stage()
    {
        database_.use(module);
        module.GridFilter = module.texts.nye;
        person.wantsWholeTexts = true;
    }

    /// Does what the line says; throws at a word or name that is none, and what failed.
    void play(const CorpusLine &line)
    {
        const QString rest = names_.value(line.rest, line.rest);
        const auto [name, what] = halves(rest);
        const bool hasRows = line.word == u"has" || line.word == u"then";
        const QString columns = hasRows && what.isEmpty() ? among(corpusColumns(), name) : what;
        const QMap<QString, QString *> kSettings = {{u"KeySelect"_qs, &module.KeySelect},
                                                    {u"Level"_qs, &module.SecurityLevel},
                                                    {u"DateFormat"_qs, &host.format}};
        const QMap<QString, std::function<void()>> kVerbs = {
            {u"open"_qs, [&] { open(rest); }},
            {u"has"_qs, [&] { fillCorpusTable(database_.look(), name, columns, line.rows); }},
            {u"sql"_qs, [&] { database_.look().run(rest); }},
            {u"set"_qs, [&] { *among(kSettings, name) = what; }},
            {u"names"_qs, [&] { names_[name] = what; }},
            {u"type"_qs, [&] { type(named(name), what); }},
            {u"keys"_qs, [&] { keys(rest); }},
            {u"key"_qs,
             [&] { named(name).setFocus(), QTest::keySequence(&named(name), QKeySequence(what)); }},
            {u"click"_qs, [&] { click(named(name), what); }},
            {u"doubleclick"_qs, [&] { click(named(name), what, true); }},
            {u"refresh"_qs, [] {}},
            {u"wait"_qs, [&] { clock.run(corpusTime(rest)); }},
            {u"box"_qs, [&] { box(rest); }},
            {u"run"_qs, [&] { run(name, what); }},
            {u"fails"_qs, [&] { EXPECT_THROW(run(name, what), RuntimeFailure); }},
            {u"shows"_qs, [&] { shows(halves(rest, u':')); }},
            {u"then"_qs, [&] {
                 EXPECT_EQ(corpusRows(database_.look(), name, columns), corpusRows(line.rows));
             }}};
        if (!line.rows.isEmpty() && !hasRows) {
            throw std::runtime_error("no rows stand here");
        }
        among(kVerbs, line.word)();
        if (panel_ != nullptr && u"open has sql set refresh"_qs.contains(line.word)) {
            recordsets.OpenRecordsets(); // as a tick or a save does
            panel_->VisBrukerTabell();
        }
        if (line.word != u"box") {
            person.expectAllAsked();
        }
    }

private:
    void open(const QString &name)
    {
        if (name == u"users") {
            screen_ = std::make_unique<QSplitter>(Qt::Vertical);
            auto *doors = new DoorPanel(module, recordsets, link, person, clock, screen_.get());
            panel_ =
                new UserPanel(module, recordsets, link, users_, person, clock, host, screen_.get());
            recordsets.display = [doors] { doors->display(); };
            QObject::connect(doors, &DoorPanel::doorChosen, panel_, &UserPanel::followDoor);
            screen_->resize(700, 600);
            panel_->CLEAR_INPUT();
        } else if (name == u"frmKEY") {
            const BrowserTools tools{module, person, clock, settings};
            screen_ = std::make_unique<frmKEY>(tools, [] {});
            dynamic_cast<frmKEY &>(*screen_).load();
        } else {
            screen_ = name == u"frmKeyProperties"
                          ? std::make_unique<frmKeyProperties>(module, person, clock)
                          : throw std::runtime_error("no such screen");
            run(u"load"_qs, {});
        }
        screen_->show();
        QApplication::setActiveWindow(screen_.get());
        clock.run(10ms);
    }
    QWidget &named(const QString &name) const
    {
        auto *found = name == u"screen" ? screen_.get() : screen_->findChild<QWidget *>(name);
        return found != nullptr ? *found : throw std::runtime_error("no such control");
    }

    /// Replaces what stands in a field; or in a cell of a grid, "4,0", which is ended then.
    void type(QWidget &control, const QString &text)
    {
        if (auto *day = qobject_cast<QDateEdit *>(&control)) {
            day->setDate(QDate::fromString(text, kDays));
        } else if (auto *grid = qobject_cast<QTableView *>(&control)) {
            const QStringList cell = halves(text).first.split(u',');
            grid->setCurrentIndex(grid->model()->index(cell.first().toInt(), cell.last().toInt()));
            QTest::keyClick(grid, Qt::Key_F2);
            QWidget *editor = grid->indexWidget(grid->currentIndex());
            type(editor != nullptr ? *editor : *screen_, halves(text).second);
            QTest::keyClick(editor, Qt::Key_Return);
            QCoreApplication::processEvents(); // the cell closes behind the key
        } else if (auto *field = qobject_cast<QLineEdit *>(&control); field && field->isVisible()) {
            field->setFocus();
            field->selectAll();
            text.isEmpty() ? QTest::keyClick(field, Qt::Key_Delete) : keys(text);
        } else {
            throw std::runtime_error("nothing to type in");
        }
    }
    /// Goes on where the focus is. QTest's own typing knows no letters beyond ASCII.
    void keys(const QString &text)
    {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, text);
        QApplication::sendEvent(screen_->focusWidget(), &event);
    }
    /// A button; a tab by its caption; a row of a grid, or "heading 7"; the entry of a list or the
    /// arrow of a stepper by its number.
    void click(QWidget &control, const QString &what, bool twice = false)
    {
        QWidget *target = &control;
        QPoint place = control.rect().center();
        const int number = what.section(u' ', -1).toInt();
        if (auto *list = qobject_cast<QComboBox *>(target)) {
            list->setCurrentIndex(number);
            emit list->activated(number);
            return;
        } else if (!control.isVisible()) {
            throw std::runtime_error("not to be seen");
        } else if (auto *tabs = qobject_cast<QTabBar *>(target)) {
            const QStringList captions = value(tabs->objectName()).split(u'|');
            const auto tab = static_cast<int>(captions.indexOf(what));
            place =
                tab >= 0 ? tabs->tabRect(tab).center() : throw std::runtime_error("no such tab");
        } else if (auto *grid = qobject_cast<QTableView *>(target)) {
            QHeaderView &heads = *grid->horizontalHeader();
            const bool isRow = halves(what).first != u"heading";
            target = isRow ? grid->viewport() : heads.viewport();
            place = isRow ? grid->visualRect(grid->model()->index(number, 0)).center()
                          : QPoint(heads.sectionViewportPosition(number) + 5, 5);
        } else if (!what.isEmpty()) {
            target = control.findChildren<QAbstractButton *>().at(number);
            place = target->rect().center();
        }
        twice ? QTest::mouseDClick(target, Qt::LeftButton, {}, place)
              : QTest::mouseClick(target, Qt::LeftButton, {}, place);
    }
    /// All of the next box: [title] "text", then the answer to a question or "=" and what is typed.
    void box(const QString &told)
    {
        static const QRegularExpression kBox(
            u"^(?:\\[(.*?)\\] )?\"(.*)\"(?: (OK|Cancel)| =(.*))?$"_qs);
        const QRegularExpressionMatch match = kBox.match(told);
        const QString title = match.captured(1);
        const QString text =
            match.captured(2).replace(u"\\n"_qs, u"\n"_qs).replace(u"\\r"_qs, u"\r"_qs);
        if (match.hasCaptured(4)) {
            person.types(title, match.captured(4), 0ms, text);
        } else if (match.hasCaptured(3)) {
            person.answers(text, match.captured(3) == u"OK" ? Answer::Ok : Answer::Cancel, 0ms,
                           title);
        } else if (match.hasMatch()) {
            person.answers(text, 0ms, title);
        } else {
            throw std::runtime_error("not a box");
        }
    }
    /// An operation of the program behind the screens; those of the users on the fields of an
    /// entry.
    void run(const QString &operation, const QString &fields)
    {
        const QMap<QString, std::function<void()>> kOperations = {
            {u"StartNyBruker"_qs, [&] { users_.StartNyBruker(); }},
            {u"RegistrerBruker"_qs, [&] { users_.RegistrerBruker(entry_); }},
            {u"LagreNyBruker"_qs, [&] { users_.LagreNyBruker(entry_); }},
            {u"SlettBruker"_qs, [&] { found_ = users_.SlettBruker(entry_); }},
            {u"save"_qs, [&] { users_.save(entry_, true); }},
            {u"matchCatalogue"_qs, [&] { check_.matchCatalogue(entry_); }},
            {u"choosePeriod"_qs, [&] { check_.choosePeriod(entry_); }},
            {u"load"_qs, [&] { dynamic_cast<frmKeyProperties &>(*screen_).load(); }},
            {u"report"_qs, [&] { module.RefreshPending = true; }}};
        const auto day = [](const QString &text) { return QDate::fromString(text, kDays); };
        if (const QStringList all = fields.split(u'|'); all.size() == 11) {
            entry_ = {all[0],      all[1],      all[2], all[3], all[4], all[5],
                      day(all[6]), day(all[7]), all[8], all[9], all[10]};
        }
        among(kOperations, operation)();
    }

    /// Something of the program, or a control's text or property: of a grid "0" is a column, of an
    /// array of controls "shown" are the numbers of those that can be seen.
    QString value(const QString &what)
    {
        const UserEntry &e = entry_;
        const QStringList entry = {e.number, e.fornavn, e.etternavn, e.status, e.konto, e.id};
        const QStringList period = {e.from.toString(kDays), e.to.toString(kDays), e.fraTid};
        const QMap<QString, QVariant> known = {
            {u"KeySelect"_qs, module.KeySelect},
            {u"GridFilter"_qs, module.GridFilter},
            {u"beeps"_qs, person.beeps},
            {u"refills"_qs, refills_},
            {u"pending"_qs, module.RefreshPending},
            {u"found"_qs, found_},
            {u"entry"_qs, (entry + period + QStringList{e.tilTid, e.saldo}).join(u'|')}};
        const auto [name, property] = halves(what, u'.');
        QStringList several;
        const auto *tabs = screen_->findChild<QTabBar *>(name);
        const auto *grid = screen_->findChild<QTableView *>(name);
        if (known.contains(what)) {
            several += known[what].toString();
        } else if (property == u"shown") {
            for (int i = 0; i < 30; ++i) {
                const auto *each = screen_->findChild<QWidget *>(u"%1_%2"_qs.arg(name).arg(i));
                const bool isShown = each != nullptr && each->isVisibleTo(screen_.get());
                several += isShown ? QStringList(QString::number(i)) : QStringList();
            }
        } else if (tabs != nullptr && property.isEmpty()) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                several += tabs->tabText(tab);
            }
        } else if (grid != nullptr) {
            for (int row = 0; row < grid->model()->rowCount(); ++row) {
                several += grid->model()->index(row, property.toInt()).data().toString();
            }
        } else if (property == u"colours") {
            several += named(name).palette().color(QPalette::Base).name();
            several += named(name).palette().color(QPalette::Text).name();
        } else {
            const char *text = screen_->findChild<QComboBox *>(name) ? "currentText" : "text";
            const auto found =
                named(name).property(property.isEmpty() ? text : qPrintable(property));
            several += found.isValid() ? found.toString() : throw std::runtime_error("no property");
        }
        return several.join(property == u"shown" ? u' ' : u'|');
    }
    void shows(const std::pair<QString, QString> &told)
    {
        QStringList found;
        for (const QString &each : told.first.split(u' ')) {
            for (const QString &control : names_.value(each, each).split(u' ')) {
                found += value(control);
            }
        }
        EXPECT_EQ(corpusText(found.join(u'|')), told.second.mid(1).toStdString());
    }
    TestDatabase database_;
    int refills_ = 0;    ///< of the grid, behind a change of places
    bool found_ = false; ///< the user that was to be deleted
    UserOperations users_{module, recordsets, link, person, clock, host, [this] { ++refills_; }};
    NumberCheck check_{module, recordsets, person, clock};
    UserEntry entry_;
    QMap<QString, QString> names_; ///< several controls by one name
    std::unique_ptr<QWidget> screen_;
    UserPanel *panel_ = nullptr;
};

TEST(Screens, StandAsTheirScriptsSay)
{
    const std::vector<CorpusCase> all = corpusCases(u"screens"_qs);
    EXPECT_GE(all.size(), 40U);
    const std::string wanted = qEnvironmentVariable("LUKORA_TRANSCRIPT").toStdString();
    for (const CorpusCase &each : all) {
        if (each.name.find(wanted) == std::string::npos) {
            continue;
        }
        SCOPED_TRACE(each.name);
        Stage stage;
        bool expects = false;
        for (const CorpusLine &line : each.lines) {
            SCOPED_TRACE(line.place + (line.word + u' ' + line.rest).toStdString());
            try {
                stage.play(line);
            } catch (const std::runtime_error &failure) {
                ADD_FAILURE() << failure.what();
                break;
            }
            expects |= QStringList{u"shows"_qs, u"then"_qs, u"fails"_qs}.contains(line.word);
        }
        EXPECT_TRUE(expects) << "nothing comes of it";
    }
}

} // namespace
