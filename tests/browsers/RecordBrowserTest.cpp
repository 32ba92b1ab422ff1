#include "browsers/BrowserWorld.h"
#include "browsers/frmBrukere.h"

#include <QClipboard>
#include <QFile>

#include <csignal>
#include <sys/resource.h>

namespace {

const QString kConflict = QStringLiteral("endret eller slettet av en annen");
const QString kStandsOnADoor =
    QStringLiteral("Denne brukeren er registrert på en eller flere nøkler. Kan ikke slettes!!!");

struct RecordBrowserTest : BrowserWorld {
    void addPerson(const QString &name, const QString &number)
    {
        database.add(u"Katalog"_qs, u"Bruker,Etternavn,Fornavn"_qs, {number, name, u"Per"_qs});
    }
    void openCatalogue()
    {
        addPerson(u"Ås"_qs, u"+4791000001"_qs);
        addPerson(u"Berg"_qs, u"+4791000002"_qs);
        addPerson(u"Zorn"_qs, u"+4791000003"_qs);
        open<frmBrukere>(tools());
    }
    void openPasswords()
    {
        database.add(u"Passwords"_qs, u"USER_ID,Password,SecurityLevel"_qs,
                     {u"Anna"_qs, u"x"_qs, u"4"_qs});
        open<RecordBrowser>(kPasswordTable, tools());
    }
    /// So many rows that they are read in slices; the values are said of the number i.
    void addThousands(const QString &tableAndColumns, const QString &values)
    {
        run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 30000)"
            " INSERT INTO %1 SELECT %2 FROM n"_qs.arg(tableAndColumns, values));
    }
};

TEST_F(RecordBrowserTest, KeysMoveAsTheFrameSays)
{
    openCatalogue();
    EXPECT_EQ(status(), u"Record: 1"_qs);
    const struct {
        int from; ///< row, from 0
        Qt::Key pressed;
        const char *status;
        int beeps = 0;
        Qt::KeyboardModifiers modifiers = {};
    } moves[] = {
        {0, Qt::Key_Down, "Record: 2"},
        {0, Qt::Key_PageDown, "Record: 2"},
        {2, Qt::Key_Up, "Record: 2"},
        {2, Qt::Key_PageUp, "Record: 2"},
        {2, Qt::Key_Down, "Record: 3", 1},
        {0, Qt::Key_Up, "Record: 1", 1},
        {0, Qt::Key_End, "Record: 3"},
        {2, Qt::Key_Home, "Record: 1"},
        {0, Qt::Key_Down, "Record: 3", 0, Qt::ControlModifier},
        {2, Qt::Key_PageUp, "Record: 1", 0, Qt::ControlModifier},
    };
    for (const auto &[from, pressed, expected, beeps, modifiers] : moves) {
        SCOPED_TRACE(QKeySequence(pressed | modifiers).toString().toStdString());
        standOn(from);
        person.beeps = 0;
        key(pressed, modifiers);
        EXPECT_EQ(status(), QString::fromLatin1(expected));
        EXPECT_EQ(person.beeps, beeps);
    }
    for (const auto &[button, expected] :
         {std::pair("cmdLast", 2), {"cmdPrevious", 1}, {"cmdFirst", 0}, {"cmdNext", 1}}) {
        click(button);
        EXPECT_EQ(row(), expected) << button;
    }
    key(Qt::Key_Escape);
    EXPECT_FALSE(screen->isVisible());

    run(u"DELETE FROM Katalog"_qs); // an empty table does not beep
    open<frmBrukere>(tools());
    person.beeps = 0;
    for (const Qt::Key each : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Home}) {
        key(each);
    }
    click("cmdDelete");
    EXPECT_EQ(status(), u""_qs);
    EXPECT_EQ(person.beeps, 0);
}

TEST_F(RecordBrowserTest, LanguageTableHasNoKeysOfTheFrame)
{
    open<RecordBrowser>(kLanguageTable, tools());
    key(Qt::Key_Escape);
    EXPECT_TRUE(screen->isVisible());
    key(Qt::Key_End, Qt::ControlModifier); // the grid's own
    EXPECT_EQ(status(), u"Record: 227"_qs);
    type(1, 1, u"Skriv… Ж"_qs);
    EXPECT_EQ(rows(u"SELECT Norsk FROM TBLLanguage WHERE ID = 2"_qs), "Skriv &ut...");
    key(Qt::Key_Up);
    EXPECT_EQ(rows(u"SELECT Norsk FROM TBLLanguage WHERE ID = 2"_qs), "Skriv… ?");
}

TEST_F(RecordBrowserTest, SearchFindsInAnyColumnWithoutCaseAndKeepsTheRow)
{
    openCatalogue();
    key(Qt::Key_Down);
    search(u"ÅS"_qs);
    EXPECT_EQ(column(1), "Ås");
    EXPECT_EQ(hits(), u"1 treff"_qs);
    search(u"9100000"_qs);
    EXPECT_EQ(column(1), "Ås|Berg|Zorn");
    QTest::keyClick(&searchLine(), Qt::Key_Escape);
    EXPECT_EQ(hits(), u"3 rader"_qs);
    EXPECT_TRUE(screen->isVisible());
    key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(searchLine().hasFocus());
}

TEST_F(RecordBrowserTest, HeadingSortsAscendingAndTheLastOneOnceMore)
{
    openCatalogue();
    EXPECT_EQ(column(1), "Ås|Berg|Zorn") << "as the table has them, until the first click";
    clickHeading(7); // has no key of its own, and none is in force
    EXPECT_EQ(sortedBy(), 0);
    key(Qt::Key_End);
    for (int click = 0; click < 2; ++click) {
        clickHeading(1);
        EXPECT_EQ(column(1), "Berg|Zorn|Ås");
        EXPECT_EQ(status(), u"Record: 1"_qs);
        EXPECT_EQ(sortedBy(), 1);
    }
    run(u"UPDATE Katalog SET Etternavn = 'Aas' WHERE Etternavn = 'Zorn'"_qs);
    grid().horizontalHeader()->moveSection(7, 0);
    clickHeading(7);
    EXPECT_EQ(column(1), "Aas|Berg|Ås");
}

TEST_F(RecordBrowserTest, CopiesAndSavesWhatIsShown)
{
    openCatalogue();
    clickHeading(1);
    grid().setColumnHidden(3, true);
    grid().horizontalHeader()->moveSection(1, 0);
    search(u"per"_qs);
    run(u"UPDATE Katalog SET Gate = 'skjult', Poststed = '=X' || char(9) || 'y'"
        " WHERE Etternavn = 'Berg'"_qs);
    key(Qt::Key_Home);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    clock.run(1s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"Berg\t+4791000002\tPer\t\t=X y\t\t\nZorn\t+4791000003\tPer\t\t\t\t\n"_qs);

    const QString path = database.filePath(u"ut.csv"_qs);
    person.picksNewFile(u"Alle Brukere.csv"_qs, u"CSV (*.csv)"_qs, path);
    clickAndWait("cmdSaveCsv", 1s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(),
              "\xEF\xBB\xBF\"Etternavn\";\"Bruker\";\"Fornavn\";\"PostNr.\";\"Sted\";"
              "\"Tillatelser\";\"Kortnummer\"\r\n"
              "\"Berg\";\"+4791000002\";\"Per\";\"\";\"'=X\ty\";\"\";\"\"\r\n"
              "\"Zorn\";\"+4791000003\";\"Per\";\"\";\"\";\"\";\"\"\r\n"
              "\"Ås\";\"+4791000001\";\"Per\";\"\";\"\";\"\";\"\"\r\n");
}

// What stood in the file before stays, and the reason is told.
TEST_F(RecordBrowserTest, CsvThatCannotBeWrittenSaysWhy)
{
    openCatalogue();
    const auto other = database.open();
    const auto save = [&](const QString &name, const QString &failure) {
        const QString path = database.filePath(name);
        person.picksNewFile(u"Alle Brukere.csv"_qs, u"CSV (*.csv)"_qs, path);
        if (!failure.isEmpty()) {
            person.answers(failure);
        }
        clickAndWait("cmdSaveCsv", 3s);
        EXPECT_EQ(person.isBusy(), failure == u"låst"_qs) << "it is tried again";
        clock.run(3s);
        EXPECT_EQ(QFile::exists(path), failure.isEmpty());
    };
    save(u"borte/ut.csv"_qs, u"Filen kunne ikke skrives. Mappen finnes ikke."_qs);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{.rlim_cur = 100, .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    save(u"ut.csv"_qs, u"Filen kunne ikke skrives. File too large"_qs);
    setrlimit(RLIMIT_FSIZE, &before);
    other->run(u"BEGIN EXCLUSIVE"_qs);
    save(u"ut.csv"_qs, u"låst"_qs);
    clock.after(2s, [&] { other->run(u"COMMIT"_qs); });
    save(u"ut.csv"_qs, {});
}

TEST_F(RecordBrowserTest, WidthsAndOrderAreTheOperatorsTheNextTime)
{
    openCatalogue();
    grid().setColumnWidth(2, 77);
    grid().horizontalHeader()->moveSection(2, 0);
    screen->close();
    open<frmBrukere>(tools());
    EXPECT_EQ(grid().columnWidth(2), 77);
    EXPECT_EQ(grid().horizontalHeader()->visualIndex(2), 0);
    run(u"DELETE FROM Katalog"_qs); // says nothing of what the columns need
    for (const QString &left :
         {u"tull"_qs, u"2:90"_qs, u"2:90;2:90;1:90;0:90;3:90;4:90;5:90;6:90"_qs,
          u"2:90;0:90;1:90;3:90;4:90;5:90;6:90;8:90"_qs,
          u"2:9;0:90;1:90;3:90;4:90;5:90;6:90;7:90"_qs,
          u"2:99999;0:90;1:90;3:90;4:90;5:90;6:90;7:90"_qs}) {
        settings.values[u"frmbrukere.columns"_qs] = left;
        open<frmBrukere>(tools());
        EXPECT_EQ(grid().horizontalHeader()->visualIndex(2), 2) << left.toStdString();
    }
    const int narrow = grid().columnWidth(1);
    addPerson(u"Etternavnet er langt her"_qs, u"+4791000004"_qs);
    clickAndWait("cmdRefresh", 1s);
    EXPECT_GT(grid().columnWidth(1), narrow);
}

TEST_F(RecordBrowserTest, RowIsSavedWhenItIsLeftAndWhenTheScreenCloses)
{
    openPasswords();
    EXPECT_EQ(headings(), "BRUKER|PASSORD|SIKKERHETSNIVÅ");
    EXPECT_TRUE(grid().verticalHeader()->isVisible()) << "marks the row that is edited";
    EXPECT_EQ(column(0), "Anna|Hovedoperatør|");
    type(2, 0, u"Ola"_qs, Qt::Key_Down);
    EXPECT_EQ(row(), 3) << "on to the next";
    type(2, 2, u"høy"_qs);
    EXPECT_EQ(grid().model()->headerData(2, Qt::Vertical).toString(), u"✎"_qs);
    EXPECT_EQ(rows(u"SELECT SecurityLevel FROM Passwords WHERE USER_ID = 'Ola'"_qs), "");
    key(Qt::Key_Home);
    EXPECT_EQ(rows(u"SELECT USER_ID, SecurityLevel FROM Passwords ORDER BY Rad DESC LIMIT 1"_qs),
              "Ola|høy");
    EXPECT_EQ(hits(), u"3 rader"_qs);
    type(0, 1, u"y"_qs);
    grid().edit(grid().model()->index(0, 2)); // a cell is still open
    screen->close();
    EXPECT_EQ(rows(u"SELECT Password FROM Passwords WHERE USER_ID = 'Anna'"_qs), "y");
}

// Another PC was quicker: it is told, nothing is lost, and the screen stays until it is settled.
TEST_F(RecordBrowserTest, ConflictsAreToldAndSettledByTheOperator)
{
    openPasswords();
    const auto elsewhere = [this](const QString &password) {
        run(u"UPDATE Passwords SET Password = '%1' WHERE USER_ID = 'Anna'"_qs.arg(password));
    };
    type(0, 1, u"min"_qs);
    elsewhere(u"din"_qs);
    for (const auto &leave : std::initializer_list<std::function<void()>>{
             [&] { key(Qt::Key_Down); }, [&] { screen->close(); }, [&] { search(u"o"_qs); }}) {
        person.answers(kConflict);
        leave();
        EXPECT_EQ(row(), 0);
        EXPECT_TRUE(screen->isVisible());
        EXPECT_EQ(column(1, 1), "min");
    }
    key(Qt::Key_Escape);
    EXPECT_EQ(column(1, 1), "din");
    clock.run(1s);
    EXPECT_EQ(column(0), "Hovedoperatør|") << "what the edit kept from being looked for";
    search(u""_qs);
    type(0, 1, u"så min"_qs);
    key(Qt::Key_Down);
    EXPECT_EQ(rows(u"SELECT Password FROM Passwords WHERE USER_ID = 'Anna'"_qs), "så min");
    elsewhere(u"en ny"_qs);
    EXPECT_EQ(column(1, 1), "så min");
    key(Qt::Key_Home);
    EXPECT_EQ(column(1, 1), "en ny") << "who stands on a row sees what he may delete";

    elsewhere(u"nok en"_qs);
    person.answers(kConflict);
    click("cmdDelete");
    EXPECT_EQ(column(1, 1), "nok en");
    click("cmdDelete");
    EXPECT_EQ(column(0), "Hovedoperatør|");
    EXPECT_EQ(rows(u"SELECT USER_ID FROM Passwords"_qs), "Hovedoperatør");
}

TEST_F(RecordBrowserTest, LongReadingStopsAtEscape)
{
    addThousands(u"Katalog (Bruker)"_qs, u"i"_qs);
    screen = std::make_unique<frmBrukere>(tools());
    screen->load();
    screen->show();
    EXPECT_EQ(hits(), QLocale().toString(2000) + u"… rader"_qs);
    key(Qt::Key_Escape);
    EXPECT_TRUE(screen->isVisible());
    clock.run(1s);
    EXPECT_EQ(hits(), QLocale().toString(2000) + u" rader"_qs);
    searchLine().setText(u"0"_qs);
    searchLine().clear();
    click("cmdLast"); // known only when all are
    key(Qt::Key_Home);
    clock.run(5s);
    EXPECT_EQ(status(), u"Record: 1"_qs) << "the later wish counts";
    click("cmdRefresh");
    clickAndWait("cmdLast", 5s);
    EXPECT_EQ(status(), u"Record: 30000"_qs);
    click("cmdRefresh"); // stands there all the while, and again behind it
    for (const milliseconds slice : {0ms, 1ms, 1ms, 1ms, 1ms, 5000ms}) {
        clock.run(slice);
        EXPECT_EQ(row(), 29'999);
    }
    searchLine().setText(u"2999"_qs);
    EXPECT_EQ(row(), 29'999) << "until the first hit is there";
    clock.run(5s);
    EXPECT_EQ(status(), u"Record: 1"_qs);
}

TEST_F(RecordBrowserTest, SearchOrSortStoppedBeforeItHasRowsIsTakenBack)
{
    addThousands(u"SMS_Sent (Fornavn)"_qs, u"99999 - i"_qs);
    open<RecordBrowser>(kSMSSentTable, tools());
    clock.run(1s);
    const QString all = hits();
    searchLine().setText(u"finnes ikke"_qs);
    EXPECT_EQ(hits(), u"…"_qs);
    QTest::keyClick(&searchLine(), Qt::Key_Escape);
    EXPECT_EQ(searchLine().text(), u""_qs);
    EXPECT_EQ(hits(), all);
    clickHeading(3, 0ms);
    EXPECT_EQ(sortedBy(), 3);
    key(Qt::Key_Escape);
    EXPECT_EQ(sortedBy(), 0);
    EXPECT_EQ(settings.values[u"frmsmssent.sort"_qs], u"ID"_qs);
    clickAndWait("cmdRefresh", 1s);
    EXPECT_EQ(column(3, 1), "99998");
    EXPECT_EQ(hits(), all);
}

// The rows shown until the new ones are known are those that count, and none is lost on the way.
TEST_F(RecordBrowserTest, LongTableStandsOnItsRowWhileItIsReadAnew)
{
    addThousands(u"Katalog (Bruker, Gate)"_qs, u"1000000 + i, 'Vei ' || (99999 - i)"_qs);
    database.add(u"TBLbrukere"_qs, u"KeyBruker,KeyNummer"_qs, {u"1000001"_qs, u"+4790000001"_qs});
    open<frmBrukere>(tools());
    clock.run(1s);
    for (const QString &wanted : {u"finnes ikke"_qs, u"1000001"_qs}) {
        searchLine().setText(wanted);
        person.answers(kStandsOnADoor);
        click("cmdDelete");
        EXPECT_EQ(rows(u"SELECT count(*) FROM Katalog"_qs), "30000");
    }
    search(u""_qs);
    clickHeading(3);
    EXPECT_EQ(row(), 0) << "another row than before, of the same number";
    EXPECT_EQ(column(0, 1), "1030000");
    standOn(20'000);
    clickAndWait("cmdRefresh", 5s);
    EXPECT_EQ(status(), u"Record: 20001"_qs);
    EXPECT_EQ(row(), 20'000);

    searchLine().setText(u"vei"_qs);
    standOn(20'000, 1);
    key(Qt::Key_N); // opens the cell
    clock.run(1s);
    auto *cell = qobject_cast<QLineEdit *>(grid().indexWidget(grid().currentIndex()));
    ASSERT_NE(cell, nullptr) << "what is being typed is not taken away";
    QTest::keyClicks(cell, u"ymann"_qs);
    search(u""_qs);
    EXPECT_EQ(rows(u"SELECT Bruker FROM Katalog WHERE Etternavn = 'nymann'"_qs), "1010000");

    run(u"DELETE FROM Katalog WHERE Bruker BETWEEN 1010001 AND 1010200"_qs); // above this row
    grid().scrollTo(grid().model()->index(19'900, 0));
    (void)grid().model()->index(19'900, 0).data();
    clock.run(5s);
    EXPECT_EQ(status(), u"Record: 19801"_qs);
    EXPECT_EQ(row(), 19'800);
}

TEST_F(RecordBrowserTest, CatalogueKeepsWhoStandsOnADoorAndCountsDoorsAnew)
{
    openCatalogue();
    for (const QString &door : {u"+4790000001"_qs, u"+4790000002"_qs}) {
        database.add(u"TBLbrukere"_qs, u"KeyBruker,KeyNummer"_qs, {u"+4791000001 "_qs, door});
    }
    run(u"UPDATE Katalog SET Tillatelser = '7'"_qs);
    person.answers(kStandsOnADoor);
    click("cmdDelete");
    key(Qt::Key_Down);
    click("cmdDelete");
    EXPECT_EQ(column(1), "Ås|Zorn");
    clickAndWait("cmdRefresh", 1s);
    EXPECT_EQ(column(6), "2|7") << "nobody visits those without a door";
    EXPECT_EQ(column(7), "91000001|");
    type(0, 4, u"0001"_qs);
    type(0, 5, u"Sør's"_qs);
    key(Qt::Key_Down);
    EXPECT_EQ(rows(u"SELECT Postnummer, Poststed FROM Katalog WHERE Rad = 1"_qs), "0001|Sør's");
}

} // namespace
