#include "app/frmMain.h"
#include "browsers/RecordBrowser.h"
#include "data/LanguageRows.h"
#include "inbound/frmSMSReceived.h"
#include "support/Bench.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTableView>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

/// The screens on a table of texts in which each text is "#" and its position.
struct Language : testing::Test, Bench {
    Language()
    {
        database.use(module);
        database.look().run(u"DELETE FROM TBLLanguage"_qs);
        // The numbers of the rows are others than their positions.
        database.look().run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                            "WHERE i < 255) INSERT INTO TBLLanguage (ID, Norsk, Dansk, Svensk) "
                            "SELECT i + 7, '#' || i, '#' || i, '#' || i FROM n"_qs);
        settings.values[u"dbpath"_qs] = database.path();
    }

    /// Captions, tool tips, and names for screen readers of all that has a name.
    static QMap<QString, QString> captions(const QWidget &screen)
    {
        QMap<QString, QString> found;
        for (const QObject *each : screen.findChildren<QObject *>()) {
            const QString name = u'`' + each->objectName() + u'`';
            const bool isOurs = name.size() > 2 && !name.startsWith(u"`qt_");
            for (const auto &[property, prefix] : {std::pair("title", u""_qs),
                                                   {"text", u""_qs},
                                                   {"toolTip", u"tool tip of "_qs},
                                                   {"accessibleName", u"name of "_qs},
                                                   {"placeholderText", u"hint in "_qs}}) {
                // The tool tip of an entry is its caption.
                const bool isDerived = prefix.startsWith(u"tool") && each->inherits("QAction");
                const QString text = each->property(property).toString();
                const bool isTyped = prefix.isEmpty() && each->inherits("QLineEdit");
                if (isOurs && !isDerived && !isTyped && !text.isEmpty()) {
                    found[prefix + name] = text;
                }
            }
        }
        return found;
    }
    void note(const QString &place, const QString &text)
    {
        if (text.startsWith(u'#')) {
            fed[text.mid(1).toInt()] += place;
        }
    }
    void noteMain()
    {
        frmMain screen(clock, person, settings, host, port, socket, module);
        screen.load();
        const QMap<QString, QString> found = captions(screen);
        for (auto each = found.begin(); each != found.end(); ++each) {
            note(each.key(), each.value());
        }
        const QMap<QString, QString ScreenTexts::*> kWords = {
            {u"alle"_qs, &ScreenTexts::alle},
            {u"brukerRegistrert"_qs, &ScreenTexts::brukerRegistrert},
            {u"brukerVenter"_qs, &ScreenTexts::brukerVenter},
            {u"compactDone"_qs, &ScreenTexts::compactDone},
            {u"compactFailed"_qs, &ScreenTexts::compactFailed},
            {u"compactQuestion"_qs, &ScreenTexts::compactQuestion},
            {u"gjest"_qs, &ScreenTexts::gjest},
            {u"minstElleve"_qs, &ScreenTexts::minstElleve},
            {u"modemIkkeFunnet"_qs, &ScreenTexts::modemIkkeFunnet},
            {u"nye"_qs, &ScreenTexts::nye},
            {u"sendSmsTil"_qs, &ScreenTexts::sendSmsTil},
            {u"sjekkNummer"_qs, &ScreenTexts::sjekkNummer},
            {u"skrivMeldingstekst"_qs, &ScreenTexts::skrivMeldingstekst},
            {u"velgComPort"_qs, &ScreenTexts::velgComPort},
            {u"ventTilSending"_qs, &ScreenTexts::ventTilSending}};
        for (auto word = kWords.begin(); word != kWords.end(); ++word) {
            note(u"`ScreenTexts::"_qs + word.key() + u'`', module.texts.*word.value());
        }
    }
    void noteBrowser(RecordBrowser &screen, const BrowserTable &table)
    {
        screen.load();
        const QString name = u'`' + screen.objectName() + u"` "_qs;
        const QMap<QString, QString> found = captions(screen);
        for (auto each = found.begin(); each != found.end(); ++each) {
            note(name + each.key(), each.value());
        }
        const auto *rows = screen.findChild<QTableView *>(u"grdDataGrid"_qs)->model();
        for (int i = 0; i < rows->columnCount(); ++i) {
            note(name + u"column `"_qs + QString::fromLatin1(table.columns[i].field) + u'`',
                 rows->headerData(i, Qt::Horizontal).toString());
        }
    }

    TestDatabase database;
    QMap<int, QStringList> fed; ///< by position
};

TEST_F(Language, PositionsAndTextsAreThoseOfTheDocument)
{
    noteMain();
    const BrowserTools tools{module, person, clock, settings};
    frmSMSReceived received(tools);
    noteBrowser(received, kSMSReceivedTable);
    for (const BrowserTable *table : {&kBrukereTable, &kSMSSentTable, &kKEYTable, &kPasswordTable,
                                      &kLOGGTable, &kLanguageTable}) {
        RecordBrowser screen(*table, tools);
        noteBrowser(screen, *table);
    }
    std::vector<std::string> lines;
    const std::vector<LanguageRow> rows = languageRows();
    for (int position = 1; position <= 255; ++position) {
        const LanguageRow row = position <= static_cast<int>(rows.size())
                                    ? rows[static_cast<std::size_t>(position - 1)]
                                    : LanguageRow();
        if (fed.contains(position) || !(row.norsk + row.dansk + row.svensk).isEmpty()) {
            const QStringList cells{QString::number(position), fed[position].join(u", "_qs),
                                    row.norsk, row.dansk, row.svensk};
            lines.push_back((u"| "_qs + cells.join(u" | "_qs) + u" |"_qs).toStdString());
        }
    }
    QFile document(QStringLiteral(LUKORA_DOCS "/language.md"));
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    std::vector<std::string> documented;
    while (!document.atEnd()) {
        const QByteArray line = document.readLine().chopped(1);
        if (line.startsWith("| ") && line[2] >= '0' && line[2] <= '9') {
            documented.push_back(line.toStdString());
        }
    }
    for (std::size_t i = 0; i < std::max(lines.size(), documented.size()); ++i) {
        EXPECT_EQ(i < lines.size() ? lines[i] : "", i < documented.size() ? documented[i] : "");
    }
}

// What the table does not feed, the catalogue of messages does: names for screen readers above all.
TEST_F(Language, NothingOnTheMainScreenStaysNorwegian)
{
    frmMain screen(clock, person, settings, host, port, socket, module);
    screen.load();
    const QMap<QString, QString> norwegian = captions(screen);
    // The same in all three, or Qt's own.
    const QStringList same = {u"Modem"_qs, u"IMEI"_qs, u"Nummer"_qs,      u"Navn"_qs,
                              u"Konto"_qs, u"True"_qs, u"Scroll Left"_qs, u"Scroll Right"_qs};
    for (const auto &[code, file] : {std::pair(u"45"_qs, u"da"_qs), {u"46"_qs, u"sv"_qs}}) {
        QTranslator texts;
        ASSERT_TRUE(texts.load(u":/translations/lukora_"_qs + file));
        QCoreApplication::installTranslator(&texts);
        screen.findChild<QAction *>(code == u"45" ? u"mnuSpråkDansk"_qs : u"mnuSpråkSvensk"_qs)
            ->trigger();
        QCoreApplication::processEvents();
        const QMap<QString, QString> found = captions(screen);
        for (auto each = found.begin(); each != found.end(); ++each) {
            static const QRegularExpression kWord(u"^[^#].*\\p{L}{2}"_qs);
            if (kWord.match(each.value()).hasMatch() && !same.contains(each.value())) {
                EXPECT_NE(each.value().toStdString(), norwegian[each.key()].toStdString())
                    << each.key().toStdString();
            }
        }
    }
}

} // namespace
