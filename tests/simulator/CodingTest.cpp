#include "ModemWorld.h"
#include "simulator/GsmAlphabet.h"

namespace {

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
