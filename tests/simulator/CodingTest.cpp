#include "ModemWorld.h"
#include "simulator/GsmAlphabet.h"

namespace {

// The places that matter between a door and its reader, from the standard's table.
TEST(Alphabet, PutsNordicLettersAndEscapesWhereTheStandardHasThem)
{
    EXPECT_EQ(toGsm(u"ÆØÅæøå"_qs), QByteArray("\x1c\x0b\x0e\x1d\x0c\x0f"));
    EXPECT_EQ(toGsm(u"ÄÖäö"_qs), QByteArray("\x5b\x5c\x7b\x7c"));
    EXPECT_EQ(toGsm(u"@$_¤"_qs), QByteArray("\x00\x02\x11\x24", 4));
    EXPECT_EQ(toGsm(u"€["_qs), QByteArray("\x1b\x65\x1b\x3c"));
    EXPECT_EQ(fromGsm("\x1b\x65\x1b\x3c"), u"€["_qs);
}

TEST(Alphabet, TurnsTheForeignAndTheBrokenIntoQuestionMarks)
{
    EXPECT_EQ(toGsm(u"a字b"_qs + QChar(0)), QByteArray("a?b?"));
    EXPECT_EQ(fromGsm("a\xe5\x1b\x01\x1b"), u"a???"_qs);
}

TEST(Alphabet, BringsEveryCodeBack)
{
    for (int code = 0; code < 128; ++code) {
        const QByteArray one(1, static_cast<char>(code));
        EXPECT_EQ(toGsm(fromGsm(one)), code == 27 ? QByteArray("?") : one) << code;
    }
}

} // namespace
