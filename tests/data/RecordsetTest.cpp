#include "data/Criteria.h"
#include "data/DataTest.h"

namespace {

/// A catalogue of three, one of them with blanks behind number and name.
struct RecordsetTest : DataTest {
    RecordsetTest()
    {
        addPerson(u"+4790000001"_qs, u"Ødegård"_qs);
        addPerson(u"+4790000002"_qs, u"Hansen"_qs);
        addPerson(u"+4790000003 "_qs, u"Ås  "_qs);
    }
    Recordset catalogue(const QString &sort = {})
    {
        Recordset set;
        set.open(database.open(), {.source = u"Katalog"_qs,
                                   .columns = {u"Bruker"_qs, u"Etternavn"_qs, u"Fornavn"_qs},
                                   .sort = sort});
        return set;
    }
    static void change(Recordset &set, const QString &Etternavn)
    {
        set.setValue(u"Etternavn"_qs, Etternavn);
        set.update();
    }
};

class RecordsetOrders : public RecordsetTest, public testing::WithParamInterface<const char *> {
protected:
    Recordset set = catalogue(QString::fromUtf8(GetParam()));
};

TEST_P(RecordsetOrders, MovesRunOffBothEndsOnceAndFailBehindThem)
{
    const QString first = set.text(u"Bruker"_qs);
    set.movePrevious();
    EXPECT_TRUE(set.bof() && !set.eof());
    EXPECT_THROW(set.movePrevious(), RuntimeFailure);
    EXPECT_THROW(set.text(u"Bruker"_qs), RuntimeFailure);
    set.moveNext();
    EXPECT_EQ(set.text(u"Bruker"_qs), first);
    set.moveLast();
    EXPECT_EQ(set.position(), 3);
    set.moveNext();
    EXPECT_TRUE(set.eof() && !set.bof());
    EXPECT_THROW(set.moveNext(), RuntimeFailure);
    EXPECT_FALSE(set.find(u"Bruker"_qs, first));
    set.movePrevious();
    EXPECT_EQ(set.position(), 3);
}

TEST_P(RecordsetOrders, FindGoesForwardFromTheCurrentRowItselfIncluded)
{
    ASSERT_TRUE(set.find(u"Etternavn"_qs, set.text(u"Etternavn"_qs)));
    EXPECT_EQ(set.position(), 1);
    const QString first = set.text(u"Bruker"_qs);
    set.moveNext();
    EXPECT_FALSE(set.find(u"Bruker"_qs, first));
    EXPECT_TRUE(set.findFirst(u"[bruker]"_qs, first));
    EXPECT_FALSE(set.findFirst(u"Bruker"_qs, first, {{u"Etternavn"_qs, u"Olsen"_qs}}));
}

TEST_P(RecordsetOrders, MovesGoOnFromARemovedRow)
{
    set.moveNext();
    const QString second = set.text(u"Bruker"_qs);
    set.remove();
    EXPECT_FALSE(set.eof());
    EXPECT_THROW(set.text(u"Bruker"_qs), RuntimeFailure);
    EXPECT_THROW(set.remove(), RuntimeFailure);
    set.moveNext();
    EXPECT_NE(set.text(u"Bruker"_qs), second);
    EXPECT_EQ(set.recordCount(), 2);
    set.remove();
    set.movePrevious();
    set.remove();
    set.moveNext();
    EXPECT_TRUE(set.bof() && set.eof() && set.isEmpty());
}

TEST_P(RecordsetOrders, NewRowIsCurrentAndItsBookmarkLeadsBack)
{
    set.addNew();
    set.setValue(u"BRUKER"_qs, u"+4790000009"_qs);
    set.update();
    const qint64 bookmark = set.bookmark();
    set.moveFirst();
    set.setBookmark(bookmark);
    EXPECT_EQ(set.text(u"Bruker"_qs), u"+4790000009");
    set.remove();
    set.setBookmark(bookmark);
    EXPECT_TRUE(set.eof());
    // The number of a deleted row never names another one.
    set.addNew();
    set.update();
    EXPECT_NE(set.bookmark(), bookmark);
}

TEST_P(RecordsetOrders, CancelledRowLeavesNoTrace)
{
    const QString first = set.text(u"Bruker"_qs);
    set.addNew();
    set.setValue(u"Bruker"_qs, u"+4790000009"_qs);
    set.cancelUpdate();
    set.update();
    EXPECT_EQ(set.text(u"Bruker"_qs), first);
    set.setValue(u"Etternavn"_qs, u"Olsen"_qs);
    set.requery();
    EXPECT_NE(set.text(u"Etternavn"_qs), u"Olsen");
    EXPECT_EQ(set.recordCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(Sorting, RecordsetOrders, testing::Values("", "Etternavn"));

TEST_F(RecordsetTest, CriteriaAreComparedAsPaddedTextWithoutCase)
{
    struct Criterion {
        QString column, value;
        bool found;
    };
    Recordset set = catalogue();
    for (const Criterion &criterion : {Criterion{u"Bruker"_qs, u"+4790000003"_qs, true},
                                       {u"Bruker"_qs, u"  +4790000001 "_qs, true},
                                       {u"Bruker"_qs, u"\t+4790000001"_qs, false},
                                       {u"Etternavn"_qs, u"ØDEGÅRD"_qs, true},
                                       {u"Etternavn"_qs, u"ås"_qs, true},
                                       {u"Etternavn"_qs, u"ODEGARD"_qs, false},
                                       {u"Etternavn"_qs, u"Hans%"_qs, false},
                                       {u"Etternavn"_qs, u"\" OR 1"_qs, false}}) {
        EXPECT_EQ(set.findFirst(criterion.column, criterion.value), criterion.found)
            << criterion.value.toStdString();
    }
}

TEST_F(RecordsetTest, QuotesAndForeignColumnsFailInCriteriaWhereverTheSetStands)
{
    Recordset set = catalogue();
    EXPECT_THROW(set.findFirst(u"Bruker"_qs, u"' OR '1'='1"_qs), RuntimeFailure);
    EXPECT_THROW(set.find(u"Poststed"_qs, u"Poststed"_qs), RuntimeFailure); // not of the set
    EXPECT_THROW(set.sort(u"Bruker DESC"_qs), RuntimeFailure);
    set.setValue(u"Etternavn"_qs, u"O'Brien"_qs); // storing it is no harm
    set.update();
    EXPECT_THROW(set.find(u"Etternavn"_qs, u"O'Brien"_qs), RuntimeFailure);
    set.moveLast();
    set.moveNext();
    EXPECT_THROW(set.find(u"Etternavn"_qs, u"'"_qs), RuntimeFailure);
}

TEST_F(RecordsetTest, NordicLettersSortBehindZAndPeriodsAsDatesWithOtherTextBehindThem)
{
    addPerson(u"4"_qs, u"Ærlig"_qs);
    addPerson(u"5"_qs, u"zakarias"_qs);
    EXPECT_EQ(column(catalogue(u"Etternavn"_qs), 1), "Hansen|zakarias|Ærlig|Ødegård|Ås  ");
    for (const auto &day : {u"x"_qs, u"2/1/2027"_qs, u""_qs, u"10/12/2026"_qs, u"9/12/2026"_qs}) {
        database.add(u"NYEbrukere"_qs, u"Gyldig fra,Bruker"_qs, {day, u"a"_qs});
    }
    Recordset set;
    set.open(database.own(), {.source = u"NYEbrukere"_qs,
                              .columns = {u"Gyldig fra"_qs, u"ID"_qs},
                              .sort = u"[gyldig FRA]"_qs});
    EXPECT_EQ(column(set, 0), "9/12/2026|10/12/2026|2/1/2027||x");
    set.sort(u"ID"_qs);
    EXPECT_EQ(set.text(u"Gyldig fra"_qs), u"x");
}

TEST_F(RecordsetTest, SavedQueryShowsTheDoorsUsersOnceEach)
{
    for (const auto &user : {u"+4790000003"_qs, u"+4790000001"_qs, u"+4790000008"_qs}) {
        addUser(user, u"+4790000100"_qs);
    }
    Recordset set;
    set.open(database.own(), {.source = u"brukere"_qs,
                              .columns = {u"Bruker"_qs, u"Etternavn"_qs},
                              .filter = equals(u"KeyNummer"_qs),
                              .values = {u"+4790000100"_qs},
                              .sort = u"Bruker"_qs,
                              .key = u"Rad"_qs});
    EXPECT_EQ(column(set, 1), "Ødegård|Ås  ");
    set.setValue(u"Etternavn"_qs, u"Olsen"_qs);
    EXPECT_THROW(set.update(), RuntimeFailure);
}

// Two PCs on one file, both on the same row.
TEST_F(RecordsetTest, RowThatAnotherPcChangedOrDeletedIsNeitherChangedNorDeleted)
{
    Recordset ours = catalogue();
    Recordset theirs = catalogue();
    run(u"UPDATE Katalog SET Poststed = 'Moss'"_qs); // which neither set reads
    change(theirs, u"ØDEGÅRD "_qs);                  // case and blanks count
    EXPECT_THROW(change(ours, u"Moe"_qs), RuntimeFailure);
    change(theirs, u"Ødegård"_qs);
    change(ours, u"Ødegård"_qs);
    theirs.setValue(u"Fornavn"_qs, QString());
    theirs.update();
    EXPECT_THROW(change(ours, u"Moe"_qs), RuntimeFailure);
    EXPECT_THROW(ours.remove(), RuntimeFailure);
    EXPECT_EQ(database.single(u"SELECT Poststed FROM Katalog"_qs), u"Moss");
    theirs.remove();
    EXPECT_THROW(change(ours, u"Moe"_qs), RuntimeFailure);
    EXPECT_THROW(ours.remove(), RuntimeFailure);
    EXPECT_EQ(ours.text(u"Etternavn"_qs), u"Moe") << "what was typed is not lost";
    EXPECT_EQ(ours.recordCount(), 2);
}

TEST_F(RecordsetTest, SortedWalkPassesOverARowDeletedByAnother)
{
    EXPECT_THROW(addPerson(u"+4790000001 "_qs, {}), RuntimeFailure); // the same person
    Recordset ours = catalogue(u"Etternavn"_qs);
    EXPECT_EQ(ours.text(u"Etternavn"_qs), u"Hansen");
    Recordset theirs = catalogue();
    theirs.findFirst(u"Bruker"_qs, u"+4790000001"_qs);
    theirs.remove();
    ours.moveNext();
    EXPECT_EQ(ours.text(u"Etternavn"_qs), u"Ås  ");
}

} // namespace
