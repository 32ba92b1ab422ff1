#include "data/DataTest.h"

namespace {

/// Two PCs on one file, both on the same row.
struct SharedFileTest : DataTest {
    SharedFileTest()
    {
        addPerson(u"+4790000001"_qs, u"Berg"_qs);
        for (Recordset *set : {&ours, &theirs}) {
            set->open(database.open(), {.source = u"Katalog"_qs,
                                        .columns = {u"Bruker"_qs, u"Etternavn"_qs, u"Fornavn"_qs}});
            set->moveFirst();
        }
    }
    void change(Recordset &set, const QString &Etternavn)
    {
        set.setValue(u"Etternavn"_qs, Etternavn);
        set.update();
    }
    QString stored() { return database.single(u"SELECT Etternavn FROM Katalog"_qs); }

    Recordset ours;
    Recordset theirs;
};

TEST_F(SharedFileTest, ChangeOfCaseBlanksOrAnotherColumnCountsAsChange)
{
    run(u"UPDATE Katalog SET Poststed = 'Moss'"_qs); // which neither set reads
    change(theirs, u"BERG "_qs);
    EXPECT_THROW(change(ours, u"Moe"_qs), RuntimeFailure);
    change(theirs, u"Berg"_qs);
    change(ours, u"Berg"_qs);
    theirs.setValue(u"Fornavn"_qs, QString());
    theirs.update();
    EXPECT_THROW(change(ours, u"Moe"_qs), RuntimeFailure);
    EXPECT_EQ(database.single(u"SELECT Poststed FROM Katalog"_qs), u"Moss");
}

TEST_F(SharedFileTest, RowThatIsAnotherOrGoneIsNeitherChangedNorDeleted)
{
    change(theirs, u"Dahl"_qs);
    EXPECT_THROW(ours.remove(), RuntimeFailure);
    theirs.remove();
    EXPECT_THROW(change(ours, u"Moe"_qs), RuntimeFailure);
    EXPECT_THROW(ours.remove(), RuntimeFailure);
    EXPECT_EQ(ours.text(u"Etternavn"_qs), u"Moe") << "what was typed is not lost";
    EXPECT_TRUE(ours.isEmpty());
}

TEST_F(SharedFileTest, SortedWalkPassesOverARowDeletedByAnother)
{
    EXPECT_THROW(addPerson(u"+4790000001 "_qs, {}), RuntimeFailure); // the same person
    addPerson(u"2"_qs, u"Dahl"_qs);
    addPerson(u"3"_qs, u"Moe"_qs);
    ours.sort(u"Etternavn"_qs);
    EXPECT_EQ(ours.text(u"Etternavn"_qs), u"Berg");
    theirs.findFirst(u"Bruker"_qs, u"2"_qs);
    theirs.remove();
    ours.moveNext();
    EXPECT_EQ(ours.text(u"Etternavn"_qs), u"Moe");
}

} // namespace
