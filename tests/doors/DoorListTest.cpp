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

    int opened = 0;
};

TEST_F(DoorListTest, OpensOnTheCurrentDoorAndTheRowIsTheCurrentDoorFromThereOn)
{
    openList();
    EXPECT_EQ(headings(), "Dør Nummer|Dør Navn|Bygning|Sikkerhetsnivå");
    EXPECT_EQ(module.KeySelect, u"+4790000002"_qs);
    EXPECT_EQ(status(), u"Record: 2"_qs);
    key(Qt::Key_Down);
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);
    key(Qt::Key_Escape);
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);

    run(u"DELETE FROM KEYTable"_qs);
    openList();
    EXPECT_EQ(tabs(), "ALLE");
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);
}

TEST_F(DoorListTest, BuildingsHaveTabsAndTheFirstIsActiveWhateverIsShown)
{
    openList();
    EXPECT_EQ(tabs(), "ALLE|Blokk A && C|Blokk B");
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
}

struct Right {
    QString level;
    int doors;
    bool adds;
    bool edits;
    bool deletes;
    bool opens;
};

TEST_F(DoorListTest, LevelDecidesWhatMayBeDone)
{
    for (const Right &right :
         {Right{u"7"_qs, 4, false, false, false, true}, Right{u"6"_qs, 4, true, true, true, true},
          Right{u"5"_qs, 3, true, true, true, true}, Right{u"4"_qs, 2, false, true, false, false},
          Right{u"3"_qs, 1, false, false, false, false},
          Right{u"65"_qs, 4, false, false, false, true},
          Right{u""_qs, 0, false, false, false, false}}) {
        SCOPED_TRACE(right.level.toStdString());
        openList(right.level);
        const QAbstractItemModel &rows = *grid().model();
        EXPECT_EQ(rows.rowCount(), right.doors + (right.adds ? 1 : 0));
        if (right.doors > 0) {
            EXPECT_EQ(rows.index(0, 1).flags().testFlag(Qt::ItemIsEditable), right.edits);
            opened = 0;
            const QPoint cell = grid().visualRect(rows.index(0, 1)).center();
            QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell);
            QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, cell);
            EXPECT_EQ(opened, right.opens ? 1 : 0);
            EXPECT_EQ(grid().indexWidget(rows.index(0, 1)), nullptr) << "no cell opens";
        }
        EXPECT_EQ(control<QPushButton>("cmdDelete").isVisible(), right.deletes);
        EXPECT_TRUE(control<QPushButton>("cmdClose").isVisible());
    }
}

TEST_F(DoorListTest, ArrowDownReachesTheEmptyRowAndSavesTheDoorBegunThere)
{
    run(u"DELETE FROM KEYTable"_qs);
    openList();
    for (int row = 0; row < 2; ++row) {
        EXPECT_EQ(grid().currentIndex(), grid().model()->index(row, 0));
        type(row, 0, u"+479000001%1"_qs.arg(row));
        type(row, 1, u"Bod"_qs);
        key(Qt::Key_Down);
        EXPECT_EQ(module.KeySelect, u"+479000001%1"_qs.arg(row));
        EXPECT_EQ(control<QLabel>("lblHits").text(), row == 0 ? u"1 rad"_qs : u"2 rader"_qs);
    }
    EXPECT_EQ(rows(u"SELECT KeyNavn, Admin, Eget_Nummer FROM KEYTable"_qs),
              "Bod|0|99999999;Bod|0|99999999")
        << "nobody is its administrator, and the own number is to be asked for";
}

TEST_F(DoorListTest, NewDoorGetsItsDefaultsAndAReminder)
{
    openList();
    person.answers(u" Husk Internasjonalt telefonnummer +47..."_qs);
    type(4, 0, u"90000005"_qs);
    type(4, 1, u"Kjeller's"_qs);
    EXPECT_EQ(rows(u"SELECT count(*) FROM KEYTable"_qs), "4");
    key(Qt::Key_Up);
    EXPECT_EQ(rows(u"SELECT KeyNummer, KeyNavn, KeySikkerhet, Tekst1, Tekst2, Tekst3, Tekst4,"
                   " Tekst5, Tekst6, Alarmstatus, KeyStatus FROM KEYTable WHERE Rad = 5"_qs),
              "90000005|Kjeller's|4|Velkommen som ny bruker|for å åpne porten|"
              "De er slettet som bruker|Takk for besøket og velkommen igjen|"
              "**ALARM** Alarm Loop|Ostrand a.s|ALARM AV|Normal (N)");
    EXPECT_EQ(rows(u"SELECT count(*) FROM SMS_Sent"_qs), "0");

    type(5, 0, u"+4790000001 "_qs); // is there already
    person.answers(u"Det finnes allerede en rad med dette nummeret"_qs);
    key(Qt::Key_Up);
    EXPECT_EQ(grid().currentIndex().row(), 5);
    key(Qt::Key_Escape);
    key(Qt::Key_Up);
    type(3, 0, u" "_qs);
    person.answers(u"En dør må ha et nummer."_qs);
    key(Qt::Key_Up);
    key(Qt::Key_Escape);
    type(3, 3, u"høy"_qs);
    person.answers(u"vises den ikke for deg"_qs);
    key(Qt::Key_Up);
    EXPECT_EQ(rows(u"SELECT KeySikkerhet FROM KEYTable WHERE Rad = 4"_qs), "høy");
    type(0, 1, u"Port"_qs);
    grid().setCurrentIndex(grid().model()->index(5, 0)); // the empty row, by a click
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
    const QString question =
        u"Er Du sikker. Dette vil slette NØKKEL og alle tilhørende brukere!!"_qs;
    person.answers(question, Answer::Cancel);
    type(1, 0, u"+4790000001"_qs); // not saved yet: the door on the row is still the other one
    click("cmdDelete");
    EXPECT_EQ(left(), "4|2|2|8|5");
    person.answers(question);
    click("cmdDelete");
    EXPECT_EQ(person.titles.last(), u"DELETE KEY"_qs);
    EXPECT_EQ(left(), "3|1|1|5|5");
    EXPECT_EQ(column(1), "Hovedport|Bod|Kontor|");
    EXPECT_EQ(module.KeySelect, u"+4790000003"_qs);

    run(u"UPDATE KEYTable SET KeyNavn = 'x'"_qs); // another PC
    person.answers(question);
    person.answers(u"endret eller slettet av en annen"_qs);
    click("cmdDelete");
    EXPECT_EQ(left(), "3|1|1|5|5") << "all or nothing";
}

TEST_F(DoorListTest, DeletesTheDoorThatStandsInTheFileAndNoOther)
{
    for (const QString &number : {u"+4790000001"_qs, u"+4790000002"_qs}) {
        database.add(u"SMS_Sent"_qs, u"TilNummer,CMGS"_qs, {number, u"UNSENT"_qs});
    }
    openList();
    type(1, 0, u"+4790000001"_qs); // another door's, not saved
    person.answers(u"Er Du sikker"_qs);
    click("cmdDelete");
    EXPECT_EQ(rows(u"SELECT TilNummer FROM SMS_Sent"_qs), "+4790000001");

    person.answers(u"Er Du sikker"_qs, Answer::Ok, 5s);
    person.answers(u"endret eller slettet av en annen"_qs);
    clock.after(1s, [this] { // another PC deletes it, and the menu loads the list
        run(u"DELETE FROM KEYTable WHERE KeyNummer = '+4790000003'"_qs);
        screen->load();
    });
    click("cmdDelete");
    EXPECT_EQ(column(1), "Hovedport|Kontor|");
}

} // namespace
