#include "../browsers/BrowserWorld.h"
#include "doors/frmKEY.h"

#include <QTabBar>

namespace {

/// Three doors in two buildings, and one without.
struct DoorListTest : BrowserWorld {
    DoorListTest()
    {
        door(u"+4790000001"_qs, u"Hovedport"_qs, u"Blokk B"_qs, u"4"_qs);
        door(u"+4790000002"_qs, u"Garasje"_qs, u"Blokk A & C"_qs, u"5"_qs);
        door(u"+4790000003"_qs, u"Bod"_qs, {}, u"1"_qs);
        door(u"+4790000004"_qs, u"Kontor"_qs, u"blokk b"_qs, u"6"_qs);
        module.KeySelect = u"+4790000002"_qs;
    }
    void door(const QString &number, const QString &name, const QVariant &building,
              const QString &level)
    {
        database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,Bygning,KeySikkerhet"_qs,
                     {number, name, building, level});
    }
    void openList(const QString &level = u"6"_qs)
    {
        module.SecurityLevel = level;
        open<frmKEY>(tools(), [this] { ++opened; });
    }
    std::string tabs()
    {
        QStringList captions;
        for (int tab = 0; tab < strip().count(); ++tab) {
            captions += strip().tabText(tab);
        }
        return captions.join(u'|').toStdString();
    }
    QTabBar &strip() { return control<QTabBar>("TabStrip1"); }
    void clickTab(int tab)
    {
        QTest::mouseClick(&strip(), Qt::LeftButton, {}, strip().tabRect(tab).center());
    }

    /// The question before a door is deleted.
    void isAsked(Answer answer, milliseconds openFor = 0ms)
    {
        person.answers(u"Er Du sikker. Dette vil slette NØKKEL og alle tilhørende brukere!!"_qs,
                       answer, openFor, u"DELETE KEY"_qs);
    }

    int opened = 0;
};

TEST_F(DoorListTest, OpensOnTheCurrentDoorAndTheRowIsTheCurrentDoorFromThereOn)
{
    openList();
    EXPECT_EQ(headings(), "Dør Nummer|Dør Navn|Bygning|Sikkerhetsnivå");
    EXPECT_EQ(module.KeySelect, u"+4790000002"_qs);
    EXPECT_EQ(status(), u"Record: 2"_qs);
    run(u"UPDATE KEYTable SET Tekst6 = 'garasje' WHERE KeyNavn = 'Bod'"_qs);
    search(u"garasje"_qs);
    EXPECT_EQ(column(1), "Garasje|") << "columns that nobody sees are not searched";
    search({});
    key(Qt::Key_Down);
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);
    key(Qt::Key_Escape);
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);

    door(u" +4790000002"_qs, u"Tvilling"_qs, {}, u"1"_qs);
    module.KeySelect = u" +4790000002"_qs;
    openList();
    EXPECT_EQ(status(), u"Record: 5"_qs) << "not the door without the blank";

    run(u"DELETE FROM KEYTable"_qs);
    openList();
    EXPECT_EQ(tabs(), "ALLE");
    EXPECT_EQ(module.KeySelect, u" +4790000002"_qs);
}

TEST_F(DoorListTest, BuildingsHaveTabsAndTheFirstIsActiveWhateverIsShown)
{
    openList();
    EXPECT_EQ(tabs(), "ALLE|Blokk A && C|Blokk B");
    control<QPushButton>("cmdSaveCsv").setFocus();
    QTest::keyClick(&control<QPushButton>("cmdSaveCsv"), Qt::Key_Tab);
    EXPECT_TRUE(strip().hasFocus());
    clickTab(2);
    EXPECT_EQ(column(1), "Hovedport|Kontor|");
    EXPECT_EQ(strip().currentIndex(), 0);
    clickTab(1);
    EXPECT_EQ(column(1), "Garasje|");
    clickTab(0); // looks chosen already
    EXPECT_EQ(column(1), "Hovedport|Garasje|Bod|Kontor|");
    for (const char *doors : {"Garasje|", "Hovedport|Kontor|", "Hovedport|Kontor|"}) {
        QTest::keyClick(&strip(), Qt::Key_Right);
        EXPECT_EQ(column(1), doors);
    }
    openList(u"3"_qs);
    EXPECT_EQ(tabs(), "ALLE");
    EXPECT_EQ(column(1), "Bod");

    run(u"UPDATE KEYTable SET Bygning = 'Olav''s' WHERE Rad = 3"_qs);
    openList();
    person.answers(u"apostrof"_qs);
    clickTab(3);
    isAsked(Answer::Ok);
    click("cmdDelete");
    EXPECT_EQ(column(1), "Hovedport|Garasje|Kontor|") << "the list is as usable as before";
    EXPECT_EQ(tabs(), "ALLE|Blokk A && C|Blokk B|Olav's") << "until the next load";
}

TEST_F(DoorListTest, LevelDecidesWhatMayBeDone)
{
    const struct {
        QString level;
        int doors;
        const char *rights;
    } levels[] = {{u"7"_qs, 4, " opens"},
                  {u"6"_qs, 4, " adds edits deletes opens"},
                  {u"5"_qs, 3, " adds edits deletes opens"},
                  {u"4"_qs, 2, " edits"},
                  {u"3"_qs, 1, ""},
                  {u"65"_qs, 4, " opens"},
                  {u""_qs, 0, ""}};
    for (const auto &[level, doors, expected] : levels) {
        openList(level);
        const QAbstractItemModel &rows = *grid().model();
        std::string rights = rows.rowCount() > doors ? " adds" : "";
        const QModelIndex cell = rows.index(0, 1);
        rights += cell.flags().testFlag(Qt::ItemIsEditable) ? " edits" : "";
        rights += control<QPushButton>("cmdDelete").isVisible() ? " deletes" : "";
        opened = 0;
        if (doors > 0) {
            const QPoint middle = grid().visualRect(cell).center();
            QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, middle);
            QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, middle);
            EXPECT_EQ(grid().indexWidget(cell), nullptr) << "no cell opens";
        }
        EXPECT_EQ(rights + (opened == 1 ? " opens" : ""), expected) << level.toStdString();
        EXPECT_TRUE(control<QPushButton>("cmdClose").isVisible());
    }
}

TEST_F(DoorListTest, NewDoorGetsItsDefaultsAndAReminderAndIsTheCurrentDoor)
{
    openList();
    person.answers(u" Husk Internasjonalt telefonnummer +47..."_qs);
    type(4, 0, u"90000005"_qs);
    type(4, 1, u"Kjeller's"_qs);
    EXPECT_EQ(rows(u"SELECT count(*) FROM KEYTable"_qs), "4");
    key(Qt::Key_Down);
    EXPECT_EQ(module.KeySelect, u"90000005"_qs);
    EXPECT_EQ(rows(u"SELECT KeyNummer, KeyNavn, KeySikkerhet, Tekst1, Tekst2, Tekst3, Tekst4,"
                   " Tekst5, Tekst6, Alarmstatus, KeyStatus, Admin, Eget_Nummer FROM KEYTable"
                   " WHERE Rad = 5"_qs),
              "90000005|Kjeller's|4|Velkommen som ny bruker|for å åpne porten|"
              "De er slettet som bruker|Takk for besøket og velkommen igjen|"
              "**ALARM** Alarm Loop|Ostrand a.s|ALARM AV|Normal (N)|0|99999999");
    EXPECT_EQ(rows(u"SELECT count(*) FROM SMS_Sent"_qs), "0");
    EXPECT_EQ(grid().currentIndex(), grid().model()->index(5, 0)) << "the empty row";

    const auto typeAndLeave = [this](int row, int column, const QString &text, const QString &box) {
        type(row, column, text);
        person.answers(box);
        key(Qt::Key_Up);
    };
    typeAndLeave(5, 0, u"+4790000001 "_qs, u"Det finnes allerede en rad med dette nummeret"_qs);
    key(Qt::Key_Escape);
    typeAndLeave(3, 0, u" "_qs, u"En dør må ha et nummer."_qs);
    key(Qt::Key_Escape);
    typeAndLeave(3, 3, u"høy"_qs, u"vises den ikke for deg"_qs);
    EXPECT_EQ(rows(u"SELECT KeySikkerhet FROM KEYTable WHERE Rad = 4"_qs), "høy");
}

TEST_F(DoorListTest, DeletedDoorTakesItsUsersAndWhatWaitsForIt)
{
    for (const QString &number : {u"+4790000001"_qs, u"+479000'002"_qs}) {
        database.add(u"TBLbrukere"_qs, u"KeyBruker,KeyNummer"_qs, {u"+4791000001"_qs, number});
        database.add(u"NYEbrukere"_qs, u"Bruker,KeyNummer"_qs, {u"+4791000001"_qs, number});
        for (const QString &state : {u"UNSENT"_qs, u"UNSENT"_qs, u"SLETTET"_qs, u"7:OK"_qs}) {
            database.add(u"SMS_Sent"_qs, u"TilNummer,CMGS"_qs, {number, state});
        }
    }
    const auto left = [this] {
        return rows(u"SELECT (SELECT count(*) FROM KEYTable), (SELECT count(*) FROM TBLbrukere),"
                    " (SELECT count(*) FROM NYEbrukere), (SELECT count(*) FROM SMS_Sent),"
                    " (SELECT count(*) FROM SMS_Sent WHERE TilNummer = '+4790000001'"
                    " OR CMGS = '7:OK')"_qs);
    };
    module.KeySelect = u"+479000'002"_qs;
    run(u"UPDATE KEYTable SET KeyNummer = '+479000''002' WHERE Rad = 2"_qs);
    openList();
    isAsked(Answer::Cancel);
    click("cmdRefresh");
    type(1, 0, u"+4790000001"_qs); // not saved yet: the door on the row is still the other one
    click("cmdDelete");
    EXPECT_EQ(left(), "4|2|2|8|5");
    isAsked(Answer::Ok);
    click("cmdDelete");
    EXPECT_EQ(left(), "3|1|1|5|5");
    EXPECT_EQ(column(1), "Hovedport|Bod|Kontor|");
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);

    run(u"UPDATE KEYTable SET KeyNavn = 'x'"_qs); // another PC
    isAsked(Answer::Ok);
    person.answers(u"endret eller slettet av en annen"_qs);
    click("cmdDelete");
    EXPECT_EQ(left(), "3|1|1|5|5") << "all or nothing";

    isAsked(Answer::Ok, 5s);
    person.answers(u"endret eller slettet av en annen"_qs);
    clock.after(1s, [this] { // another PC deletes it, and the menu loads the list
        run(u"DELETE FROM KEYTable WHERE KeyNummer = '+4790000003'"_qs);
        screen->load();
    });
    click("cmdDelete");
    EXPECT_EQ(rows(u"SELECT KeyNummer FROM KEYTable"_qs), "+4790000001;+4790000004");
}

} // namespace
