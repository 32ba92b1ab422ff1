#include "data/Recordset.h"
#include "data/Connection.h"
#include "data/Criteria.h"
#include "platform/RuntimeFailure.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

namespace {

class RecordsetTest : public testing::Test {
protected:
    RecordsetTest()
    {
        add(u"+4790000001"_qs, u"Hansen"_qs);
        add(u"+4790000002"_qs, u"Ødegård"_qs);
        add(u"+4790000003 "_qs, u"Ås  "_qs);
    }
    void add(const QString &Bruker, const QString &Etternavn)
    {
        database.add(u"Katalog"_qs, u"Bruker,Etternavn"_qs, {Bruker, Etternavn});
    }
    Recordset catalogue(const QString &sort = {})
    {
        Recordset set;
        set.open(database.open(), {.source = u"Katalog"_qs,
                                   .columns = {u"Bruker"_qs, u"Etternavn"_qs, u"Fornavn"_qs},
                                   .sort = sort});
        return set;
    }
    TestDatabase database;
};

TEST_F(RecordsetTest, MovesRunOffTheEndsAndFailThere)
{
    Recordset set = catalogue();
    EXPECT_EQ(set.text(u"Etternavn"_qs), u"Hansen");
    set.movePrevious();
    EXPECT_TRUE(set.bof());
    EXPECT_THROW(set.movePrevious(), RuntimeFailure);
    set.moveNext();
    EXPECT_EQ(set.text(u"Etternavn"_qs), u"Hansen");
    set.moveLast();
    EXPECT_EQ(set.position(), 3);
    set.moveNext();
    EXPECT_TRUE(set.eof());
    EXPECT_FALSE(set.bof());
    EXPECT_THROW(set.moveNext(), RuntimeFailure);
}

} // namespace
