#include "app/frmLogin.h"
#include "app/frmMain.h"
#include "browsers/frmBrukere.h"
#include "data/FileUse.h"
#include "doors/frmKEY.h"
#include "doors/frmKeyProperties.h"
#include "platform/RuntimeFailure.h"
#include "platform/qt/ScreenStyle.h"
#include "screens/Looks.h"
#include "simulator/Personalities.h"
#include "support/Bench.h"
#include "support/Corpus.h"
#include "support/FarModem.h"
#include "users/DoorPanel.h"
#include "users/UserOperations.h"
#include "users/UserPanel.h"

#include <QAbstractItemModelTester>
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

/// The windows that are closed while it lives, in order.
struct Closings : QObject {
    bool eventFilter(QObject *target, QEvent *event) override
    {
        if (event->type() == QEvent::Close && target->isWidgetType()) {
            names += target->objectName();
        }
        return false;
    }
    QStringList names;
};

/// The screens on a fresh database, worked and looked at by the names of their controls, as a
/// script of tests/corpus/screens says it; docs/corpus.md tells the verbs. It is 1 December 2026.
class Stage : Bench, FarModem {
public:
    Stage() : FarModem(static_cast<FakeMachine &>(*this))
    {
        QLocale::setDefault(QLocale::c());
        QApplication::setPalette(QApplication::style()->standardPalette());
        QCoreApplication::setApplicationVersion(u"1.2.3"_qs);
        qApp->installEventFilter(&closings_);
        database_.use(module);
        settings.values[u"dbpath"_qs] = database_.path();
        module.GridFilter = module.texts.nye;
        module.LoginUser = host.user;
        person.wantsWholeTexts = true;
    }

    /// Does what the line says; throws at a word or name that is none, and what failed.
    void play(const CorpusLine &line)
    {
        const QString rest = names_.value(line.rest, line.rest)
                                 .replace(u"FOLDER"_qs, QFileInfo(database_.path()).path());
        const auto [name, what] = halves(rest);
        const bool hasRows = line.word == u"has" || line.word == u"then";
        const QString columns = hasRows && what.isEmpty() ? among(corpusColumns(), name) : what;
        const QMap<QString, QString *> kSettings = {
            {u"KeySelect"_qs, &module.KeySelect},     {u"Level"_qs, &module.SecurityLevel},
            {u"LoginUser"_qs, &module.LoginUser},     {u"GridFilter"_qs, &module.GridFilter},
            {u"CountryCode"_qs, &module.CountryCode}, {u"DatabasePath"_qs, &module.DatabasePath},
            {u"DateFormat"_qs, &host.format}};
        const QMap<QString, std::function<void()>> kVerbs = {
            {u"begin"_qs, [&] { begin(rest); }},
            {u"open"_qs, [&] { begin(rest), clock.run(10ms); }},
            {u"on"_qs, [&] { screen_ = window(rest); }},
            {u"setting"_qs, [&] { settings.values[name] = what; }},
            {u"after"_qs, [&] { later(corpusTime(name), what); }},
            {u"file"_qs, [&] { picks(rest.split(u'|')); }},
            {u"place"_qs, [&] { place(rest.split(u' ')); }},
            {u"stand"_qs, [&] { grid(name).setCurrentIndex(cell(grid(name), what)); }},
            {u"scroll"_qs, [&] { grid(name).scrollTo(cell(grid(name), what)); }},
            {u"section"_qs, [&] { section(name, what.split(u' ')); }},
            {u"has"_qs, [&] { fillCorpusTable(database_.look(), name, columns, line.rows); }},
            {u"sql"_qs, [&] { database_.look().run(rest); }},
            {u"set"_qs, [&] { *among(kSettings, name) = what; }},
            {u"names"_qs, [&] { names_[name] = what; }},
            {u"type"_qs, [&] { type(named(name), what); }},
            {u"keys"_qs, [&] { keys(rest); }},
            {u"key"_qs,
             [&] { named(name).setFocus(), QTest::keySequence(&named(name), QKeySequence(what)); }},
            {u"click"_qs, [&] { click(object(name), what); }},
            {u"doubleclick"_qs, [&] { click(object(name), what, true); }},
            {u"rightclick"_qs, [&] { click(object(name), what, false, Qt::RightButton); }},
            {u"wheel"_qs, [&] { wheel(named(name)); }},
            {u"refresh"_qs, [] {}},
            {u"picture"_qs, [&] { screen_->grab().save(rest); }},
            {u"wait"_qs, [&] { clock.run(corpusTime(rest)); }},
            {u"box"_qs, [&] { box(rest); }},
            {u"run"_qs, [&] { run(name, what); }},
            {u"fails"_qs, [&] { EXPECT_THROW(run(name, what), RuntimeFailure); }},
            {u"shows"_qs, [&] { shows(halves(rest, u':')); }},
            {u"sees"_qs, [&] { sees(*among(kSettings, name), what.split(u'|'), line.rows); }},
            {u"then"_qs, [&] {
                 EXPECT_EQ(corpusRows(database_.look(), name, columns), corpusRows(line.rows));
             }}};
        if (!line.rows.isEmpty() && !hasRows && line.word != u"sees") {
            throw std::runtime_error("no rows stand here");
        }
        among(kVerbs, line.word)();
        if (panel_ != nullptr && u"begin open has sql set refresh"_qs.contains(line.word)) {
            recordsets.OpenRecordsets(); // as a tick or a save does
            panel_->VisBrukerTabell();
        }
    }
    void expectAllAsked() { person.expectAllAsked(); }

private:
    void begin(const QString &name)
    {
        const BrowserTools tools{module, person, clock, settings};
        const QMap<QString, std::function<std::unique_ptr<QWidget>()>> kScreens = {
            {u"main"_qs,
             [&] {
                 return std::make_unique<frmMain>(clock, person, settings, host, port, socket,
                                                  module);
             }},
            {u"login"_qs,
             [&] { return std::make_unique<frmLogin>(module, person, settings, host); }},
            {u"users"_qs, [&] { return users(); }},
            {u"catalogue"_qs, [&] { return std::make_unique<frmBrukere>(tools); }},
            {u"passwords"_qs,
             [&] { return std::make_unique<RecordBrowser>(kPasswordTable, tools); }},
            {u"language"_qs,
             [&] { return std::make_unique<RecordBrowser>(kLanguageTable, tools); }},
            {u"sent"_qs, [&] { return std::make_unique<RecordBrowser>(kSMSSentTable, tools); }},
            {u"frmKEY"_qs, [&] { return std::make_unique<frmKEY>(tools, [this] { ++opened_; }); }},
            {u"frmKeyProperties"_qs,
             [&] { return std::make_unique<frmKeyProperties>(module, person, clock); }}};
        clock.goOn();
        panel_ = nullptr;
        own_.reset();
        own_ = among(kScreens, name)();
        screen_ = own_.get();
        load();
        screen_->show();
        QApplication::setActiveWindow(screen_);
        if (const auto *grid = screen_->findChild<QTableView *>(u"grdDataGrid"_qs)) {
            // From here on Qt's own tester watches the grid's rows.
            new QAbstractItemModelTester(
                grid->model(), QAbstractItemModelTester::FailureReportingMode::Fatal, screen_);
        }
    }
    std::unique_ptr<QWidget> users()
    {
        auto screen = std::make_unique<QSplitter>(Qt::Vertical);
        auto *doors = new DoorPanel(module, recordsets, link, person, clock, screen.get());
        panel_ = new UserPanel(module, recordsets, link, users_, person, clock, host, settings,
                               screen.get());
        recordsets.display = [doors] { doors->display(); };
        QObject::connect(doors, &DoorPanel::doorChosen, panel_, &UserPanel::followDoor);
        screen->resize(700, 600);
        panel_->CLEAR_INPUT();
        return screen;
    }
    template <class Screen> bool loads()
    {
        auto *screen = dynamic_cast<Screen *>(screen_);
        return screen != nullptr && (screen->load(), true);
    }
    void load()
    {
        (void)(loads<RecordBrowser>() || loads<frmKeyProperties>() || loads<frmMain>() ||
               loads<frmLogin>());
    }
    /// A window that can be seen.
    static QWidget *window(const QString &name)
    {
        for (QWidget *each : QApplication::topLevelWidgets()) {
            if (each->objectName() == name && each->isVisible()) {
                return each;
            }
        }
        throw std::runtime_error("no such window");
    }
    /// Does the rest of the line when the time has come, as under a box.
    void later(milliseconds time, const QString &what)
    {
        const auto [word, rest] = halves(what);
        clock.after(time, [this, line = CorpusLine{{}, 0, word, rest, {}}] {
            try {
                play(line);
            } catch (const std::runtime_error &failure) {
                ADD_FAILURE() << failure.what();
            }
        });
    }
    /// The next question for a file: filter and name, or suggested name, filter and name.
    void picks(const QStringList &told)
    {
        const QString path = told.last().isEmpty() ? u""_qs : database_.filePath(told.last());
        told.size() == 3 ? person.picksNewFile(told[0], told[1], path)
                         : person.picksFile(module.DatabasePath, told[0], path);
    }
    void place(const QStringList &numbers)
    {
        screen_->move(numbers.at(0).toInt(), numbers.at(1).toInt());
        screen_->resize(numbers.at(2).toInt(), numbers.at(3).toInt());
    }
    /// "move 2 0" takes the third column to the front; "width 2 77", of which 0 hides it.
    void section(const QString &name, const QStringList &told)
    {
        QHeaderView &heads = *grid(name).horizontalHeader();
        const int column = told.at(1).toInt();
        const int number = told.at(2).toInt();
        if (told.at(0) == u"move") {
            heads.moveSection(column, number);
        } else {
            heads.resizeSection(column, number);
            heads.setSectionHidden(column, number == 0);
        }
    }
    QTableView &grid(const QString &name) const { return dynamic_cast<QTableView &>(named(name)); }
    /// "4,0", or "4" for its first column.
    static QModelIndex cell(const QTableView &grid, const QString &place)
    {
        return grid.model()->index(place.section(u',', 0, 0).toInt(),
                                   place.section(u',', 1, 1).toInt());
    }
    QWidget &named(const QString &name) const
    {
        auto *found = qobject_cast<QWidget *>(&object(name));
        return found != nullptr ? *found : throw std::runtime_error("no control");
    }
    QObject &object(const QString &name) const
    {
        auto *found = name == u"screen" ? screen_ : screen_->findChild<QObject *>(name);
        return found != nullptr ? *found : throw std::runtime_error("no such control");
    }

    /// Replaces what stands in a field; or in a cell of a grid, "4,0", which is ended then.
    void type(QWidget &control, const QString &text)
    {
        if (auto *day = qobject_cast<QDateEdit *>(&control)) {
            day->setDate(QDate::fromString(text, kDays));
        } else if (auto *grid = qobject_cast<QTableView *>(&control)) {
            grid->setCurrentIndex(cell(*grid, halves(text).first));
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
    /// An entry of a menu; a button; a tab by its caption; a row of a grid, or "heading 7"; the
    /// entry of a list or the arrow of a stepper by its number.
    void click(QObject &clicked, const QString &what, bool twice = false,
               Qt::MouseButton button = Qt::LeftButton)
    {
        if (auto *entry = qobject_cast<QAction *>(&clicked)) {
            entry->isVisible() && entry->isEnabled() ? entry->trigger()
                                                     : throw std::runtime_error("not to be had");
            return;
        }
        auto &control = dynamic_cast<QWidget &>(clicked);
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
        twice ? QTest::mouseDClick(target, button, {}, place)
              : QTest::mouseClick(target, button, {}, place);
    }
    /// One notch towards the operator.
    static void wheel(QWidget &control)
    {
        const QPointF place = control.rect().center();
        QWheelEvent event(place, control.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&control, &event);
    }
    /// All of the next box: how long it stands open, [title] "text", then the answer to a question
    /// or "=" and what is typed.
    void box(const QString &told)
    {
        static const QRegularExpression kBox(
            u"^(?:(\\d+\\w+) )?(?:\\[(.*?)\\] )?\"(.*)\"(?: (OK|Cancel)| =(.*))?$"_qs);
        const QRegularExpressionMatch match = kBox.match(told);
        const milliseconds open =
            match.hasCaptured(1) ? corpusTime(match.captured(1)) : milliseconds(0);
        const QString title = match.captured(2);
        const QString text =
            match.captured(3).replace(u"\\n"_qs, u"\n"_qs).replace(u"\\r"_qs, u"\r"_qs);
        if (match.hasCaptured(5)) {
            person.types(title, match.captured(5).replace(u"\\n"_qs, u"\n"_qs), open, text);
        } else if (match.hasCaptured(4)) {
            person.answers(text, match.captured(4) == u"OK" ? Answer::Ok : Answer::Cancel, open,
                           title);
        } else if (match.hasMatch()) {
            person.answers(text, open, title);
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
            {u"load"_qs, [&] { load(); }},
            {u"close"_qs, [&] { screen_->close(); }},
            {u"minimise"_qs, [&] { screen_->showMinimized(); }},
            {u"dark"_qs, [&] { QApplication::setPalette(QPalette(0x353535, 0x2D2D2D)); }},
            {u"leave"_qs, [&] { other_.show(), QApplication::setActiveWindow(&other_); }},
            {u"return"_qs, [&] { QApplication::setActiveWindow(screen_); }},
            {u"ask"_qs, [&] { ask(); }},
            {u"pace"_qs, [&] { modemLink().pace.restart(corpusTime(fields)); }},
            {u"take"_qs, [&] { module.RefreshPending = false; }},
            {u"queued"_qs, [&] { modemLink().flags.QueuePending = true; }},
            {u"withoutFile"_qs, [&] { module.DatabaseConnection.reset(); }},
            {u"unplug"_qs, [&] { port.unplug(); }},
            {u"missing"_qs, [&] { port.missing = fields; }},
            {u"modem"_qs, [&] { addPersonality(modem.faults(), fields); }},
            {u"copy"_qs, [&] { QFile::copy(database_.path(), database_.filePath(fields)); }},
            {u"letGo"_qs, [&] { database_.letGo(); }},
            {u"alone"_qs, [&] { database_.letGo(), FileUse::alone(database_.path()); }},
            {u"findSystemInformation"_qs, [&] { host.hasSystemInformation = true; }},
            {u"report"_qs, [&] { module.RefreshPending = true; }}};
        const auto day = [](const QString &text) { return QDate::fromString(text, kDays); };
        if (const QStringList all = fields.split(u'|'); all.size() == 11) {
            entry_ = {all[0],      all[1],      all[2], all[3], all[4], all[5],
                      day(all[6]), day(all[7]), all[8], all[9], all[10]};
        }
        among(kOperations, operation)();
    }

    frmMain *main() const { return dynamic_cast<frmMain *>(screen_); }
    ModemLink &modemLink() { return main() != nullptr ? main()->modemLink() : link; }
    /// A question of the screen borrows the focus.
    void ask()
    {
        QDialog question(screen_);
        question.setModal(true);
        question.show();
        QApplication::setActiveWindow(&question);
        question.close();
        QApplication::setActiveWindow(screen_);
    }
    /// The windows beside the one looked at, with their titles.
    QString windows() const
    {
        QStringList names;
        for (const QWidget *each : QApplication::topLevelWidgets()) {
            if (each != screen_ && each->isVisible() && !each->isMinimized() &&
                each->windowType() == Qt::Window) {
                names += each->objectName() + u':' + each->windowTitle();
            }
        }
        names.sort();
        return names.join(u'|');
    }
    QString content(const QString &name) const
    {
        QFile file(database_.filePath(name));
        const bool isThere = file.open(QIODevice::ReadOnly);
        return isThere ? QString::fromUtf8(file.readAll().replace("\xEF\xBB\xBF", "<BOM>"))
                       : u"none"_qs;
    }
    /// Whether it is neither hidden nor the menu hidden that it is.
    bool isSeen(const QString &name) const
    {
        QObject &found = object(name);
        const auto *menu = qobject_cast<QMenu *>(&found);
        const auto *control = qobject_cast<QWidget *>(&found);
        return menu != nullptr      ? menu->menuAction()->isVisible()
               : control != nullptr ? !control->isHidden()
                                    : found.property("visible").toBool();
    }
    /// The main screen opened with each of these values: rows of a control and "yes" or "no".
    void sees(QString &setting, const QStringList &values, const QStringList &rows)
    {
        QStringList found;
        for (const QString &row : rows) {
            found += row.section(u'|', 0, 0);
        }
        for (const QString &each : values) {
            setting = each;
            begin(u"main"_qs);
            for (QString &row : found) {
                row += isSeen(row.section(u'|', 0, 0)) ? u"|yes"_qs : u"|no"_qs;
            }
        }
        EXPECT_EQ(corpusRows(found), corpusRows(rows));
    }
    /// A column by its number, a cell "4,0", or what its name says.
    static QStringList ofGrid(const QTableView &grid, const QString &property)
    {
        const QAbstractItemModel &rows = *grid.model();
        const QHeaderView &heads = *grid.horizontalHeader();
        const auto *editor = qobject_cast<QLineEdit *>(grid.indexWidget(grid.currentIndex()));
        const QMap<QString, QVariant> known = {
            {u"row"_qs, grid.currentIndex().row()},
            {u"sort"_qs, heads.sortIndicatorSection()},
            {u"first"_qs, heads.sectionSize(heads.logicalIndex(0))},
            {u"editable"_qs, rows.flags(rows.index(0, 1)).testFlag(Qt::ItemIsEditable)},
            {u"editor"_qs, editor != nullptr ? editor->text() : u"none"_qs}};
        if (known.contains(property)) {
            return {known[property].toString()};
        }
        if (property.contains(u',')) {
            return {cell(grid, property).data().toString()};
        }
        QStringList several;
        QStringList order;
        for (int i = 0; i < heads.count(); ++i) {
            if (const int column = heads.logicalIndex(i); !grid.isColumnHidden(column)) {
                several += rows.headerData(column, Qt::Horizontal).toString();
                order += QString::number(column);
            }
        }
        if (property == u"headings" || property == u"order") {
            return property == u"order" ? order : several;
        }
        several.clear();
        const bool isMarks = property == u"marks";
        for (int row = 0; row < rows.rowCount(); ++row) {
            several += isMarks ? rows.headerData(row, Qt::Vertical).toString()
                               : rows.index(row, property.toInt()).data().toString();
        }
        return several;
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
            {u"entry"_qs, (entry + period + QStringList{e.tilTid, e.saldo}).join(u'|')},
            {u"CountryCode"_qs, module.CountryCode},
            {u"LogoCountryCode"_qs, module.LogoCountryCode},
            {u"ActiveComPort"_qs, module.ActiveComPort},
            {u"OtherComPort"_qs, module.OtherComPort},
            {u"kept"_qs, host.kept.join(u' ')},
            {u"LoginUser"_qs, module.LoginUser},
            {u"LoginComputer"_qs, module.LoginComputer},
            {u"Level"_qs, module.SecurityLevel},
            {u"door"_qs, (main() != nullptr ? main()->recordsets() : recordsets).doorNumber()},
            {u"ModemReady"_qs, module.ModemReady},
            {u"waitWords"_qs, module.texts.ventTilSending},
            {u"device"_qs, port.device},
            {u"connected"_qs, socket.host},
            {u"saved"_qs, settings.saved.join(u'|')},
            {u"ended"_qs, clock.hasEnded()},
            {u"time"_qs, qlonglong(clock.elapsed().count())},
            {u"pace"_qs, qlonglong(modemLink().pace.interval().count())},
            {u"opened"_qs, opened_},
            {u"focus"_qs, screen_->focusWidget() ? screen_->focusWidget()->objectName() : u""_qs},
            {u"windows"_qs, windows()},
            {u"closed"_qs, closings_.names.join(u' ')},
            {u"files"_qs, QFileInfo(database_.path()).dir().entryList(QDir::Files).join(u' ')},
            {u"busy"_qs, person.isBusy()},
            {u"notes"_qs, person.lastNotes.count + u'|' + person.lastNotes.warning},
            {u"clipboard"_qs, QGuiApplication::clipboard()->text()}};
        const auto [name, property] = halves(what, u'.');
        QStringList several;
        const auto *tabs = screen_->findChild<QTabBar *>(name);
        const auto *table = screen_->findChild<QTableView *>(name);
        static const QRegularExpression kOfGrid(
            u"^([0-9,]*|row|sort|first|editable|editor|order|headings|marks)$"_qs);
        const bool isSet = property == u"shown" || property == u"seen";
        if (known.contains(what)) {
            several += known[what].toString();
        } else if (property == u"shown") {
            for (int i = 0; i < 30; ++i) {
                const auto *each = screen_->findChild<QWidget *>(u"%1_%2"_qs.arg(name).arg(i));
                const bool isShown = each != nullptr && each->isVisibleTo(screen_);
                several += isShown ? QStringList(QString::number(i)) : QStringList();
            }
        } else if (tabs != nullptr && property.isEmpty()) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                several += tabs->tabText(tab);
            }
        } else if (what == u"faults") {
            several += faultsOf(*screen_);
        } else if (name == u"file") {
            several += content(property);
        } else if (name == u"setting") {
            several += settings.values.value(property);
        } else if (property == u"seen") {
            for (const QString &each : names_.value(name, name).split(u' ')) {
                several += isSeen(each) ? QStringList(each) : QStringList();
            }
        } else if (table != nullptr && kOfGrid.match(property).hasMatch()) {
            several = ofGrid(*table, property);
        } else if (property == u"tip") {
            several += tip(named(name));
        } else if (property == u"colours") {
            several += named(name).palette().color(QPalette::Base).name();
            several += named(name).palette().color(QPalette::Text).name();
        } else {
            const char *text = screen_->findChild<QComboBox *>(name) ? "currentText" : "text";
            const auto found =
                object(name).property(property.isEmpty() ? text : qPrintable(property));
            several += found.isValid() ? found.toString() : throw std::runtime_error("no property");
        }
        return several.join(isSet ? u' ' : u'|');
    }
    /// What the mouse finds there, or in the current cell of a grid.
    static QString tip(QWidget &control)
    {
        auto *grid = qobject_cast<QTableView *>(&control);
        QWidget *target = grid != nullptr ? grid->viewport() : &control;
        const QPoint place =
            (grid != nullptr ? grid->visualRect(grid->currentIndex()) : control.rect()).center();
        QToolTip::showText({}, u"none"_qs);
        QHelpEvent event(QEvent::ToolTip, place, target->mapToGlobal(place));
        QApplication::sendEvent(target, &event);
        return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
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
    std::unique_ptr<QWidget> own_;
    QWidget *screen_ = nullptr; ///< the one that is worked and looked at
    Closings closings_;
    QWidget other_;  ///< of another program
    int opened_ = 0; ///< configurations, from the list of doors
    UserPanel *panel_ = nullptr;
};

TEST(Screens, StandAsTheirScriptsSay)
{
    const std::vector<CorpusCase> all = corpusCases(u"screens"_qs);
    EXPECT_GE(all.size(), 100U);
    QApplication::setStyle(new ScreenStyle);
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
                if (!QStringList{u"box"_qs, u"file"_qs, u"after"_qs}.contains(line.word)) {
                    stage.expectAllAsked();
                }
            } catch (const std::runtime_error &failure) {
                ADD_FAILURE() << failure.what();
                break;
            }
            expects |=
                QStringList{u"shows"_qs, u"sees"_qs, u"then"_qs, u"fails"_qs}.contains(line.word);
        }
        EXPECT_TRUE(expects) << "nothing comes of it";
    }
}

} // namespace
