#include "ModemWorld.h"
#include "simulator/GsmAlphabet.h"

#include <gtest/gtest.h>

namespace {

// The places that matter between a door and its reader, from the standard's table.
TEST(Alphabet, PutsTheNordicLettersWhereTheStandardHasThem)
{
    EXPECT_EQ(toGsm(QStringLiteral("ÆØÅæøå")), QByteArray("\x1c\x0b\x0e\x1d\x0c\x0f"));
    EXPECT_EQ(toGsm(QStringLiteral("ÄÖäö")), QByteArray("\x5b\x5c\x7b\x7c"));
    EXPECT_EQ(toGsm(QStringLiteral("@$_¤")), QByteArray("\x00\x02\x11\x24", 4));
}

TEST(Alphabet, EscapesItsExtension)
{
    EXPECT_EQ(toGsm(QStringLiteral("€[")), QByteArray("\x1b\x65\x1b\x3c"));
    EXPECT_EQ(fromGsm("\x1b\x65\x1b\x3c"), QStringLiteral("€["));
}

TEST(Alphabet, TurnsTheForeignAndTheBrokenIntoQuestionMarks)
{
    EXPECT_EQ(toGsm(QStringLiteral("a字b")), QByteArray("a?b"));
    EXPECT_EQ(fromGsm("a\xe5\x1b\x01"), QStringLiteral("a??"));
    EXPECT_EQ(fromGsm("a\x1b"), QStringLiteral("a?"));
    EXPECT_EQ(toGsm(QString(QChar(0))), QByteArray("?"));
}

TEST(Alphabet, BringsEveryCodeBack)
{
    for (int code = 0; code < 128; ++code) {
        const QByteArray one(1, static_cast<char>(code));
        if (code != 27) {
            EXPECT_EQ(toGsm(fromGsm(one)), one) << code;
        }
    }
}

} // namespace
