#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

struct Dialogue {
    const char *name;
    QByteArray before; ///< said first; the answer isn't looked at
    QByteArray command;
    QByteArray answer;
};

void PrintTo(const Dialogue &dialogue, std::ostream *out)
{
    *out << dialogue.name;
}

class Answers : public testing::TestWithParam<Dialogue> {};

TEST_P(Answers, AreThoseOfATextModeModem)
{
    ModemWorld world;
    world.say("ATE0\r");
    world.say(GetParam().before);
    EXPECT_EQ(world.say(GetParam().command), GetParam().answer);
}

const QByteArray kOk = "\r\nOK\r\n";
const QByteArray kError = "\r\nERROR\r\n";

INSTANTIATE_TEST_SUITE_P(
    Framing, Answers,
    testing::Values(
        Dialogue{"echoGoesFirst", "ATE1\r", "AT\r", "AT\r\r\nOK\r\n"},
        Dialogue{"echoSwitchedOffIsStillEchoed", "ATE1\r", "ATE0\r", "ATE0\r\r\nOK\r\n"},
        Dialogue{"lineFeedBetweenCommands", "", "AT\r\nAT\r\n", kOk + kOk},
        Dialogue{"smallLetters", "", "at+cmgf=1\r", kOk},
        Dialogue{"blanks", "", "AT + CMGF = 1\r", kOk},
        Dialogue{"severalInOneLine", "", "ATE0V1;+CMGF=1;+CMGF?\r", "\r\n+CMGF: 1\r\n" + kOk},
        Dialogue{"restBehindAFailureIsLeft", "", "AT+CMGF=0;+CGMI\r", kError},
        Dialogue{"semicolonInQuotes", "", "AT+CSCA=\"+47;1\";+CSCA?\r",
                 "\r\n+CSCA: \"+47;1\",145\r\n" + kOk},
        Dialogue{"digitsForResults", "ATV0\r", "AT+CMGF?\r", "+CMGF: 1\r\n0\r"},
        Dialogue{"digitsForErrors", "ATV0\r", "AT+NONE\r", "4\r"},
        Dialogue{"wordsBackAgain", "ATV0\r", "ATV1\r", kOk},
        Dialogue{"quietSaysNoResults", "ATQ1\r", "AT+CGMI\r", "\r\nLukora\r\n"},
        Dialogue{"noiseInFront", "", QByteArray("\0\xff~a&AT\r", 8), kOk},
        Dialogue{"textTakenForACommand", "",
                 "I 91234567*25\x1a"
                 "AT\r",
                 kOk},
        Dialogue{"backspace", "", "ATX\bE0\r", kOk}, Dialogue{"emptyLines", "", "\r\r\n\r", ""},
        Dialogue{"half", "", "A\rT\r", ""},
        Dialogue{"endlessLine", "", "AT" + QByteArray(100000, 'E') + "\rAT\r", kError + kOk},
        Dialogue{"unknownBasic", "", "ATY\r", kError},
        Dialogue{"onlySigns", "", "AT&\\?\r", kError},
        Dialogue{"escapeOutsideOfAText", "", "\x1b\rAT\r", kOk}),
    [](const auto &param) { return param.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Settings, Answers,
    testing::Values(
        Dialogue{"flowControl", "", "AT\\Q0\r", kOk}, Dialogue{"factory", "", "AT&F0\r", kOk},
        Dialogue{"factoryBringsEchoBack", "AT&F\r", "AT\r", "AT\r\r\nOK\r\n"},
        Dialogue{"restoreWhatWasStored", "ATV0\rAT&W\rATV1\r", "ATZ\r", "0\r"},
        Dialogue{"restoreWithNothingStored", "AT+CSDH=1\rATZ\rATE0\r", "AT+CSDH?\r",
                 "\r\n+CSDH: 0\r\n" + kOk},
        Dialogue{"pduModeIsRefused", "AT+CMEE=1\r", "AT+CMGF=0\r", kError},
        Dialogue{"modes", "", "AT+CMGF=?\r", "\r\n+CMGF: (1)\r\n" + kOk},
        Dialogue{"alphabet", "", "AT+CSCS=\"GSM\"\r", kOk},
        Dialogue{"otherAlphabet", "", "AT+CSCS=\"UCS2\"\r", kError},
        Dialogue{"numberedErrors", "AT+CMEE=1\r", "AT+CSCS=\"UCS2\"\r", "\r\n+CME ERROR: 50\r\n"},
        Dialogue{"outOfRange", "", "AT+CLIP=2\r", kError},
        Dialogue{"submissionValues", "AT+CSMP=49,167,0,0\r", "AT+CSMP?\r",
                 "\r\n+CSMP: 49,167,0,0\r\n" + kOk},
        Dialogue{"submissionValueLeftOut", "AT+CSMP=49,,1\r", "AT+CSMP?\r",
                 "\r\n+CSMP: 49,167,1,0\r\n" + kOk},
        Dialogue{"submissionValueTooBig", "", "AT+CSMP=17,256\r", "\r\n+CMS ERROR: 305\r\n"},
        Dialogue{"noticesToTheStorage", "AT+CNMI=1,1,0,2,1\r", "AT+CNMI?\r",
                 "\r\n+CNMI: 1,1,0,2,1\r\n" + kOk},
        Dialogue{"shortNoticesDropTheReports", "AT+CNMI=1,1,0,2,1\rAT+CNMI=1,1\r", "AT+CNMI?\r",
                 "\r\n+CNMI: 1,1,0,0,0\r\n" + kOk},
        Dialogue{"reportsStraightToTheLine", "", "AT+CNMI=1,1,0,1,1\r", kError},
        Dialogue{"tooManyValues", "", "AT+CNMI=1,1,0,2,1,1\r", kError},
        Dialogue{"storages", "", "AT+CPMS=?\r",
                 "\r\n+CPMS: (\"SM\",\"ME\",\"MT\"),(\"SM\",\"ME\",\"MT\"),(\"SM\",\"ME\",\"MT\")"
                 "\r\n" +
                     kOk},
        Dialogue{"allStorages", "", "AT+CPMS=\"MT\",\"MT\",\"MT\"\r",
                 "\r\n+CPMS: 0,20,0,20,0,20\r\n" + kOk},
        Dialogue{"oneStorage", "AT+CPMS=\"ME\"\r", "AT+CPMS?\r",
                 "\r\n+CPMS: \"ME\",0,50,\"SM\",0,20,\"SM\",0,20\r\n" + kOk},
        Dialogue{"noSuchStorage", "", "AT+CPMS=\"XX\"\r", "\r\n+CMS ERROR: 303\r\n"},
        Dialogue{"setOfAnAnswer", "", "AT+CGMI=1\r", kError}),
    [](const auto &param) { return param.param.name; });

// Programs look at the line behind the echo and at the final result, so each of these is there.
TEST(Identity, IsToldInOneLineEach)
{
    ModemWorld world;
    world.say("ATE0\r");
    for (const char *command : {"+CGMI", "+CGMM", "+CGMR", "+CGSN", "+GSN", "+CIMI", "+CSQ"}) {
        const QByteArray answer = world.say(QByteArray("AT") + command + "\r");
        EXPECT_EQ(answer.count("\r\n"), 4) << command;
        EXPECT_TRUE(answer.endsWith("\r\n\r\nOK\r\n")) << command;
    }
}

// A slow line brings a command one character at a time, a fast one several at once.
TEST(Input, MayComeInAnyPieces)
{
    ModemWorld whole;
    ModemWorld pieces;
    const QByteArray input = "ATE1\rAT+CPMS?\rAT+CMGS=\"+4790000001\"\rHei\x1a";
    QByteArray said;
    for (const char byte : input) {
        said += pieces.say(QByteArray(1, byte));
    }
    EXPECT_EQ(whole.say(input), said);
    EXPECT_EQ(whole.listen(5s), pieces.listen(5s));
}

TEST(Input, WrittenFromInsideAnAnswerIsTakenBehindIt)
{
    ModemWorld world;
    world.say("ATE0\r");
    QByteArray said;
    world.modem.setOutput([&](const QByteArray &bytes) {
        if (said.isEmpty()) {
            world.modem.receive("AT+CGMI\r");
        }
        said += bytes;
    });
    world.modem.receive("AT+CMGF?\r");
    EXPECT_EQ(said, "\r\n+CMGF: 1\r\n\r\nOK\r\n\r\nLukora\r\n\r\nOK\r\n");
}

} // namespace
