#include "ModemWorld.h"
#include "simulator/GsmAlphabet.h"
#include "simulator/TelnetFilter.h"

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

TEST(Telnet, KeepsItsCommandsFromTheModemInPiecesOfAnySize)
{
    const struct {
        const char *name;
        QByteArray sent, data, answers;
    } streams[] = {
        {"asks for an option", "A\xff\xfd\x01T\r", "AT\r", "\xff\xfc\x01"},
        {"offers an option", "A\xff\xfb\x03T", "AT", "\xff\xfe\x03"},
        {"refusals are not answered", "\xff\xfc\x01\xff\xfe\x03X", "X", ""},
        {"option that looks like a command", QByteArray("\xff\xfd\xff") + "A", "A", "\xff\xfc\xff"},
        {"doubled byte is data", "A\xff\xffT", "A\xffT", ""},
        {"parameters", "A\xff\xfa\x18\x01xy\xff\xff\xff\xf0T", "AT", ""},
        {"command without option", "A\xff\xf1T", "AT", ""},
        {"cut off", "A\xff\xfa\x18", "A", ""},
    };
    for (const auto &stream : streams) {
        SCOPED_TRACE(stream.name);
        TelnetFilter whole;
        EXPECT_EQ(whole.take(stream.sent), stream.data);
        EXPECT_EQ(whole.takeAnswers(), stream.answers);
        TelnetFilter pieces;
        QByteArray data;
        for (const char byte : stream.sent) {
            data += pieces.take(QByteArray(1, byte));
        }
        EXPECT_EQ(data, stream.data);
        EXPECT_EQ(pieces.takeAnswers(), stream.answers);
    }
    EXPECT_EQ(TelnetFilter::escaped("a\xff."), QByteArray("a\xff\xff."));
}

} // namespace
