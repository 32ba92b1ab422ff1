#include "browsers/RecordsetModel.h"

#include "browsers/RowExport.h"
#include "data/Connection.h"
#include "platform/RuntimeFailure.h"
#include "support/Doubles.h"
#include "support/TestDatabase.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

namespace {

/// The catalogue in a model that Qt's own tester watches.
struct RecordsetModelTest : testing::Test {
    void people(int count)
    {
        database.look().run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                            " WHERE i < ?) INSERT INTO Katalog (Bruker, Etternavn)"
                            " SELECT 1000000 + i, 'Navn ' || i FROM n"_qs,
                            {count});
    }
    void show()
    {
        set.open(database.own(), {.source = u"Katalog"_qs,
                                  .columns = {u"Bruker"_qs, u"Etternavn"_qs},
                                  .key = u"Rad"_qs});
        model.setColumns({{.isEditable = true}, {.isEditable = true}});
        model.show(set);
    }
    std::string text(int row, int column = 0)
    {
        return model.index(row, column).data().toString().toStdString();
    }

    TestDatabase database;
    VirtualClock clock;
    Recordset set;
    ScriptedOperator person{clock};
    RecordsetModel model{clock, person};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(RecordsetModelTest, StoppedReadingKeepsWhatWasFoundAndANewRowStandsBehindIt)
{
    people(10'000);
    show();
    model.stopReading();
    model.setAddsRows(true);
    EXPECT_TRUE(model.setData(model.index(2000, 0), u"ny"_qs, Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index(1, 1), u"Berg"_qs, Qt::EditRole)) << "one at a time";
    model.saveEdit();
    clock.run(1s);
    EXPECT_EQ(model.recordCount(), 2001);
    EXPECT_EQ(text(2000), "ny");
    const QAbstractItemModel &asSeenByQt = model; // which looks for a letter typed in a grid
    EXPECT_TRUE(asSeenByQt.match(model.index(0, 0), Qt::DisplayRole, u"1000002"_qs).isEmpty());
}

// The first rows of another door's users are not shown among those of the one before.
TEST_F(RecordsetModelTest, RowsOfAnotherQueryGiveWayAtOnceAndASearchStandsOnItsFirstHit)
{
    people(10'000);
    show();
    clock.run(1s);
    Query others = set.query();
    others.filter = u"Rad > ?"_qs;
    others.values = {0};
    set.open(database.own(), others);
    set.sort(u"Etternavn"_qs);
    model.show(set);
    EXPECT_EQ(model.recordCount(), 0);
    clock.run(1s);
    EXPECT_EQ(text(0, 1), "Navn 1");
    set.moveLast();
    set.search(u"navn 12"_qs);
    EXPECT_EQ(set.text(u"Etternavn"_qs), u"Navn 12"_qs) << "stands on the first hit";
    model.show(set);
    clock.run(1s);
    EXPECT_EQ(model.recordCount(), 111);
}

TEST_F(RecordsetModelTest, RowsThatOthersDeleteGoWhenTheyComeIntoSight)
{
    people(300);
    show();
    database.look().run(u"DELETE FROM Katalog WHERE Bruker IN ('1000152', '1000155')"_qs);
    EXPECT_EQ(text(151), "") << "until the next slice it stands there empty";
    clock.run(10ms);
    EXPECT_EQ(text(151) + ' ' + text(152) + ' ' + text(153), "1000153 1000154 1000156");
    EXPECT_EQ(model.recordCount(), 298);
}

TEST_F(RecordsetModelTest, LockedFileLeavesCellsEmptyUntilItIsFree)
{
    people(100);
    model.setAddsRows(true);
    show();
    EXPECT_EQ(text(0), "1000001");
    database.look().setPatience(1ms);
    const auto other = database.open();
    other->run(u"BEGIN EXCLUSIVE"_qs);
    EXPECT_EQ(text(70), "");
    EXPECT_FALSE(model.flags(model.index(70, 1)).testFlag(Qt::ItemIsEditable));
    for (const int row : {100, 0}) {
        EXPECT_TRUE(model.setData(model.index(row, 1), u"Ny"_qs, Qt::EditRole)) << row;
        EXPECT_EQ(text(row, 1), "Ny");
        model.cancelEdit();
    }
    clock.run(4s);
    other->run(u"COMMIT"_qs);
    clock.run(1s);
    EXPECT_EQ(text(70), "1000071");

    other->run(u"BEGIN EXCLUSIVE"_qs);
    set.requery();
    model.show(set);
    EXPECT_EQ(text(70), "1000071") << "what was shown stays";
    person.answers(u"Databasen er låst av et annet program"_qs);
    clock.run(60s);
    other->run(u"COMMIT"_qs);
    clock.run(1s);
    EXPECT_FALSE(model.isReading());
    EXPECT_EQ(text(99), "1000100");
}

TEST(RowExport, WritesCsvThatASpreadsheetTakesForText)
{
    for (const auto &[text, cell] :
         {std::pair(u"Ås"_qs, u"\"Ås\""_qs),
          {u"si \"hei\"; nå\r\nja"_qs, u"\"si \"\"hei\"\"; nå\r\nja\""_qs},
          {u"+4791234567"_qs, u"\"+4791234567\""_qs},
          {u"-5"_qs, u"\"-5\""_qs},
          {u"=1+1"_qs, u"\"'=1+1\""_qs},
          {u"@x"_qs, u"\"'@x\""_qs},
          {u"+cmd"_qs, u"\"'+cmd\""_qs},
          {u"\tx"_qs, u"\"'\tx\""_qs},
          {u""_qs, u"\"\""_qs}}) {
        EXPECT_EQ(csvCell(text), cell);
    }
}

} // namespace
