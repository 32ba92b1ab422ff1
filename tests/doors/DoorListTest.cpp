#include "../browsers/BrowserWorld.h"
#include "doors/frmKEY.h"

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
    int opened = 0;
};

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

TEST_F(DoorListTest, AnotherPcDeletesTheDoorWhileItIsAskedAbout)
{
    module.KeySelect = u"+4790000003"_qs;
    openList();
    EXPECT_EQ(headings(), "Dør Nummer|Dør Navn|Bygning|Sikkerhetsnivå");
    person.answers(u"Er Du sikker."_qs, Answer::Ok, 5s, u"DELETE KEY"_qs);
    person.answers(u"endret eller slettet av en annen"_qs);
    clock.after(1s, [this] { // and the menu loads the list
        run(u"DELETE FROM KEYTable WHERE KeyNummer = '+4790000003'"_qs);
        screen->load();
    });
    click("cmdDelete");
    EXPECT_EQ(rows(u"SELECT KeyNummer FROM KEYTable"_qs), "+4790000001;+4790000002;+4790000004");
}

} // namespace
