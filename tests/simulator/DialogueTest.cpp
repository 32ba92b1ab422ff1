#include "ModemWorld.h"

namespace {

struct Dialogue {
    const char *name;
    QByteArray said;
    QByteArray answer;
};

template <size_t N> void play(const Dialogue (&dialogues)[N])
{
    for (const Dialogue &dialogue : dialogues) {
        EXPECT_EQ(ModemWorld().say(dialogue.said), dialogue.answer) << dialogue.name;
    }
}

TEST(Dialogue, IsFramedAsOnARealLine)
{
    const Dialogue dialogues[] = {
        {"echo", "ATE1\rAT\rATE0\rAT\r", kOk + "AT\r" + kOk + "ATE0\r" + kOk + kOk},
        {"line feed between commands", "AT\r\nAT\r\n", kOk + kOk},
        {"small letters, blanks", "at + cmgf = 1\r", kOk},
        {"several in one line", "ATE0V1;+CMGF=1;+CMGF?\r", "\r\n+CMGF: 1\r\n" + kOk},
        {"rest behind a failure is left", "AT+CMGF=0;+CGMI\r", kError},
        {"semicolon in quotes", "AT+CSCA=\"+47;1\";+CSCA?\r", "\r\n+CSCA: \"+47;1\",145\r\n" + kOk},
        {"digits", "ATV0\rAT+CMGF?\rAT+NONE\rATV1\r", "0\r+CMGF: 1\r\n0\r4\r" + kOk},
        {"quiet says no results", "ATQ1\rAT+CGMI\r", "\r\nLukora\r\n"},
        {"noise in front", QByteArray("\0\xff~a&AT\r", 8), kOk},
        {"text taken for a command", "I 91234567*25\x1a" + QByteArray("AT\r"), kOk},
        {"backspace", "ATX\bE0\r", kOk},
        {"empty and half lines", "\r\r\n\rA\rT\r", ""},
        {"endless line", "AT" + QByteArray(100000, 'E') + "\rAT\r", kError + kOk},
        {"unknown basic", "ATY\r", kError},
        {"only signs", "AT&\\?\r", kError},
        {"escape outside of a text", "\x1b\rAT\r", kOk},
    };
    play(dialogues);
}

TEST(Dialogue, KeepsItsSettings)
{
    const QByteArray storages = "(\"SM\",\"ME\",\"MT\")";
    const Dialogue dialogues[] = {
        {"command with a sign in front", "AT\\Q0\r", kOk},
        {"factory brings echo back", "AT&F0\rAT\r", kOk + "AT\r" + kOk},
        {"restores what was stored", "ATV0\rAT&W\rATV1\rATZ\r", "0\r0\r" + kOk + "0\r"},
        {"restores with nothing stored", "AT+CSDH=1\rATZ\rATE0\rAT+CSDH?\r",
         kOk + kOk + "ATE0\r" + kOk + "\r\n+CSDH: 0\r\n" + kOk},
        {"alphabet", "AT+CSCS=\"GSM\";+CSCS=\"UCS2\"\r", kError},
        {"numbered errors", "AT+CMEE=1;+CSCS=\"GSM\";+CSCS=\"UCS2\"\r", "\r\n+CME ERROR: 50\r\n"},
        {"out of range", "AT+CLIP=2\r", kError},
        {"submission value left out", "AT+CSMP=49,,1;+CSMP?\r", "\r\n+CSMP: 49,167,1,0\r\n" + kOk},
        {"submission value too big", "AT+CSMP=17,256\r", "\r\n+CMS ERROR: 305\r\n"},
        {"notices to the storage", "AT+CNMI=1,1,0,2,1;+CNMI?\r", "\r\n+CNMI: 1,1,0,2,1\r\n" + kOk},
        {"short notices drop the reports", "AT+CNMI=1,1,0,2,1;+CNMI=1,1;+CNMI?\r",
         "\r\n+CNMI: 1,1,0,0,0\r\n" + kOk},
        {"reports straight to the line", "AT+CNMI=1,1,0,1,1\r", kError},
        {"too many values", "AT+CNMI=1,1,0,2,1,1\r", kError},
        {"storages", "AT+CPMS=?\r",
         "\r\n+CPMS: " + storages + ',' + storages + ',' + storages + "\r\n" + kOk},
        {"all storages", "AT+CPMS=\"MT\",\"MT\",\"MT\"\r", "\r\n+CPMS: 0,20,0,20,0,20\r\n" + kOk},
        {"one storage", "AT+CPMS=\"ME\";+CPMS?\r",
         "\r\n+CPMS: 0,50,0,20,0,20\r\n\r\n+CPMS: \"ME\",0,50,\"SM\",0,20,\"SM\",0,20\r\n" + kOk},
        {"no such storage", "AT+CPMS=\"XX\"\r", "\r\n+CMS ERROR: 303\r\n"},
        {"set of an answer", "AT+CGMI=1\r", kError},
    };
    play(dialogues);
}

using Input = ModemTest;

// A slow line brings a command one character at a time, a fast one several at once.
TEST_F(Input, MayComeInAnyPieces)
{
    ModemWorld whole;
    ModemWorld pieces;
    const QByteArray input = "ATE1\rAT+CPMS?\rAT+CMGS=\"+4790000001\"\rHei\x1a";
    QByteArray answers;
    for (const char byte : input) {
        answers += pieces.say(QByteArray(1, byte));
    }
    EXPECT_EQ(whole.say(input), answers);
    EXPECT_EQ(whole.listen(5s), pieces.listen(5s));
}

TEST_F(Input, WrittenFromInsideAnAnswerIsTakenBehindIt)
{
    said.clear();
    modem.setOutput([&](const QByteArray &bytes) {
        if (said.isEmpty()) {
            modem.receive("AT+CGMI\r");
        }
        said += bytes;
    });
    modem.receive("AT+CMGF?\r");
    EXPECT_EQ(said, "\r\n+CMGF: 1\r\n" + kOk + "\r\nLukora\r\n" + kOk);
}

} // namespace
