#include "browsers/RecordsetModel.h"

#include "browsers/RowExport.h"
#include "data/Connection.h"
#include "platform/RuntimeFailure.h"
#include "support/Doubles.h"
#include "support/TestDatabase.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

namespace {

/// The catalogue in a model that Qt's own tester watches: rows enough for several slices.
struct RecordsetModelTest : testing::Test {
    static constexpr int kPeople = 45'000;

    void people(int count)
    {
        database.look().run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                            " WHERE i < ?) INSERT INTO Katalog (Bruker, Etternavn)"
                            " SELECT 1000000 + i, 'Navn ' || (i * 7919 % 45007) FROM n"_qs,
                            {count});
    }
    void show(const QString &sort = {})
    {
        set.open(database.own(), {.source = u"Katalog"_qs,
                                  .columns = {u"Bruker"_qs, u"Etternavn"_qs},
                                  .key = u"Rad"_qs});
        if (!sort.isEmpty()) {
            set.sort(sort);
        }
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

TEST_F(RecordsetModelTest, FirstRowsAreThereAtOnceAndTheOthersFollow)
{
    people(kPeople);
    show();
    EXPECT_TRUE(model.isReading());
    EXPECT_EQ(model.recordCount(), 2000);
    EXPECT_EQ(text(1999), "1002000");
    clock.run(1s);
    EXPECT_FALSE(model.isReading());
    EXPECT_EQ(model.recordCount(), kPeople);
    EXPECT_EQ(text(kPeople - 1), "1045000");
    EXPECT_EQ(model.rowOf(model.bookmark(30'000)), 30'000);
    const QAbstractItemModel &asSeenByQt = model; // which looks for a letter typed in a grid
    EXPECT_TRUE(asSeenByQt.match(model.index(0, 0), Qt::DisplayRole, u"1000002"_qs).isEmpty());
}

// What was shown stays until the first rows in the new order are known.
TEST_F(RecordsetModelTest, AnotherOrderTakesThePlaceOfTheOneBeforeWhenItHasRows)
{
    people(kPeople);
    show();
    clock.run(1s);
    set.sort(u"Etternavn"_qs);
    model.show(set);
    EXPECT_EQ(text(0), "1000001");
    EXPECT_EQ(model.recordCount(), kPeople);
    clock.run(1s);
    EXPECT_EQ(model.recordCount(), kPeople);
    EXPECT_EQ(text(0, 1), "Navn 1");
    EXPECT_EQ(text(kPeople - 1, 1), "Navn 9999");
    set.moveLast();
    set.search(u"navn 1234"_qs);
    EXPECT_EQ(set.text(u"Etternavn"_qs), u"Navn 1234"_qs) << "stands on the first hit";
    model.show(set);
    clock.run(1s);
    EXPECT_EQ(model.recordCount(), 11);
    EXPECT_EQ(text(0, 1), "Navn 1234");
    Query others = set.query();
    others.filter = u"Rad > ?"_qs;
    others.values = {0};
    others.sort.clear();
    set.open(database.own(), others);
    set.sort(u"Etternavn"_qs);
    model.show(set);
    EXPECT_EQ(model.rowCount(), 0) << "as of another door, which these are not";
    clock.run(1s);
    EXPECT_EQ(text(0, 1), "Navn 1234");
    set.search(u"finnes ikke"_qs);
    model.show(set);
    clock.run(1s);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(RecordsetModelTest, StoppedReadingKeepsWhatWasFound)
{
    people(kPeople);
    show();
    model.stopReading();
    model.setColumns({{.isEditable = true}});
    model.setAddsRows(true);
    model.setData(model.index(2000, 0), u"ny"_qs, Qt::EditRole);
    model.saveEdit();
    clock.run(1s);
    EXPECT_EQ(model.recordCount(), 2001);
    EXPECT_EQ(text(2000), "ny");
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
    database.look().run(u"DELETE FROM Katalog"_qs);
    EXPECT_EQ(text(250), "");
    clock.run(1s);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(RecordsetModelTest, EditsGatherInOneRowUntilTheyAreSaved)
{
    people(3);
    model.setColumns({{.heading = u"Nummer"_qs, .isEditable = true}, {.isEditable = true}});
    model.setAddsRows(true);
    show();
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_TRUE(model.setData(model.index(1, 1), u"Ås Ж"_qs, Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index(2, 1), u"Berg"_qs, Qt::EditRole)) << "one at a time";
    EXPECT_EQ(text(1, 1), "Ås ?") << "as any screen of a single-byte code page";
    EXPECT_EQ(database.single(u"SELECT Etternavn FROM Katalog WHERE Rad = 2"_qs), u"Navn 15838"_qs);
    model.cancelEdit();
    EXPECT_EQ(text(1, 1), "Navn 15838");

    EXPECT_TRUE(model.setData(model.index(3, 0), u"2000000"_qs, Qt::EditRole));
    EXPECT_EQ(model.headerData(3, Qt::Vertical, Qt::DisplayRole).toString(), u"✎"_qs);
    model.saveEdit();
    EXPECT_EQ(text(3), "2000000");
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_TRUE(model.isNewRow(4));

    EXPECT_TRUE(model.setData(model.index(0, 1), u"Min"_qs, Qt::EditRole));
    database.look().run(u"UPDATE Katalog SET Etternavn = 'Din' WHERE Rad = 1"_qs);
    EXPECT_THROW(model.saveEdit(), RuntimeFailure);
    EXPECT_EQ(text(0, 1), "Min") << "what was typed is not lost";
    EXPECT_EQ(model.editedRow(), 0);
    model.cancelEdit();
    EXPECT_EQ(text(0, 1), "Din");
    set.requery(); // stands nowhere
    database.look().run(u"UPDATE Katalog SET Etternavn = 'Ny' WHERE Rad = 1"_qs);
    EXPECT_THROW(model.deleteRow(0), RuntimeFailure) << "it is not what the grid shows";
}

TEST_F(RecordsetModelTest, LockedFileLeavesCellsEmptyUntilItIsFree)
{
    people(100);
    model.setColumns({{}, {.isEditable = true}});
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
