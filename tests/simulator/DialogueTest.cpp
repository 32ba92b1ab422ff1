#include "ModemWorld.h"

namespace {

TEST(Dialogue, IsFramedAsOnARealLineAndKeepsItsSettings)
{
    const QByteArray storages = "(\"SM\",\"ME\",\"MT\")";
    const struct {
        const char *name;
        QByteArray said, answer;
    } dialogues[] = {
        {"echo", "ATE1\rAT\rATE0\rAT\r", kOk + "AT\r" + kOk + "ATE0\r" + kOk + kOk},
        {"small letters, blanks", "at + cmgf = 1\r", kOk},
        {"several in one line", "ATE0V1;+CMGF=1;+CMGF?\r", "\r\n+CMGF: 1\r\n" + kOk},
        {"rest behind a failure is left", "AT+CMGF=0;+CGMI\r", kError},
        {"semicolon in quotes", "AT+CSCA=\"+47;1\";+CSCA?\r", "\r\n+CSCA: \"+47;1\",145\r\n" + kOk},
        {"noise in front", QByteArray("\0\xff~a&AT\r", 8), kOk},
        {"text taken for a command", "I 91234567*25\x1a" + QByteArray("AT\r"), kOk},
        {"empty and half lines", "\r\r\n\rA\rT\r", ""},
        {"endless line", "AT" + QByteArray(100000, 'E') + "\rAT\r", kError + kOk},
        {"escape outside of a text", "\x1b\rAT\r", kOk},
        {"factory brings echo back", "AT&F0\rAT\r", kOk + "AT\r" + kOk},
        {"restores what was stored", "ATV0\rAT&W\rATV1\rATZ\r", "0\r0\r" + kOk + "0\r"},
        {"numbered errors", "AT+CMEE=1;+CSCS=\"GSM\";+CSCS=\"UCS2\"\r", "\r\n+CME ERROR: 50\r\n"},
        {"out of range", "AT+CLIP=2\r", kError},
        {"submission value too big", "AT+CSMP=17,256\r", "\r\n+CMS ERROR: 305\r\n"},
        {"short notices drop the reports", "AT+CNMI=1,1,0,2,1;+CNMI=1,1;+CNMI?\r",
         "\r\n+CNMI: 1,1,0,0,0\r\n" + kOk},
        {"reports straight to the line", "AT+CNMI=1,1,0,1,1\r", kError},
        {"storages", "AT+CPMS=?\r",
         "\r\n+CPMS: " + storages + ',' + storages + ',' + storages + "\r\n" + kOk},
        {"one storage", "AT+CPMS=\"ME\";+CPMS?\r",
         "\r\n+CPMS: 0,50,0,20,0,20\r\n\r\n+CPMS: \"ME\",0,50,\"SM\",0,20,\"SM\",0,20\r\n" + kOk},
        {"no such storage", "AT+CPMS=\"XX\"\r", "\r\n+CMS ERROR: 303\r\n"},
    };
    for (const auto &[name, said, answer] : dialogues) {
        EXPECT_EQ(ModemWorld().say(said), answer) << name;
    }
}

} // namespace
