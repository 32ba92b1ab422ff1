#include "ModemWorld.h"
#include "simulator/Personalities.h"

namespace {

struct Fault : ModemTest {
    ModemFaults &faults = modem.faults();
};

// Those that the whole program lives through as if nothing had happened: nobody else sees that
// they strike at all.
TEST_F(Fault, StrikesWhereItShouldAndNowhereElse)
{
    const QByteArray submission = "AT+CMGS=+4791111111\rHei\x1a";
    const QByteArray notice = "\r\n+CMTI: \"SM\",19\r\n";
    const QByteArray listed =
        "\r\n+CMGL: 1,\"REC UNREAD\",\"+4791111111\",,\"26/12/01,09:00:00+00\"";
    const struct {
        const char *words;
        QByteArray said, answer, delivered;
    } strikes[] = {
        {"blanklines", "AT\r", "\r\n\r\n\r\nOK\r\n\r\n\r\n", ""},
        {"crcrlf", "AT\r", "\r\r\nOK\r\r\n", ""},
        {"glued", "AT+CGMM\rAT\r", "\r\nSimulated Modem\r\nOK\r\nOK\r\n", ""},
        {"noticefirst 1", "AT\rAT\r", notice + kOk + kOk, ""},
        {"noticeinrecord 1", "AT+CMGL=ALL\r", listed + "\r\n" + notice + "\r\nInn\r\n" + kOk, ""},
        {"noticeinsubmission", submission, kPrompt + notice + kSent, "Hei|"},
        {"bareprompt", submission, "\r\n>" + kSent, "Hei|"},
        {"echo", "AT&F\rATE0\rAT\r", kOk + "ATE0\r" + kOk + "AT\r" + kOk, ""},
        {"nomt", "AT+CPMS=\"MT\"\rAT+CPMS=?\r",
         "\r\n+CMS ERROR: 303\r\n\r\n+CPMS: (\"SM\",\"ME\"),(\"SM\",\"ME\"),(\"SM\",\"ME\")\r\n" +
             kOk,
         ""},
        {"nosm", "AT+CPMS=\"MT\"\rAT+CPMS=\"SM\"\r",
         "\r\n+CPMS: 1,20,1,20,1,20\r\n" + kOk + "\r\n+CMS ERROR: 303\r\n", ""},
        {"nodelete 1", "AT+CMGD=1\rAT+CMGD=1\r", kError + kOk, ""},
        {"names", "AT+CMGL\r",
         QByteArray(listed).replace(",,", ",\"Nord\x0fs, Kari\",") + "\r\nInn\r\n" + kOk, ""},
    };
    for (const auto &[words, input, answer, texts] : strikes) {
        ModemWorld world;
        world.network.send(kStranger, world.modem.ownNumber(), "Inn");
        world.listen(2s);
        addPersonality(world.modem.faults(), QString::fromUtf8(words));
        EXPECT_EQ(world.say(input, 2s), answer) << words;
        EXPECT_EQ(world.delivered(), texts) << words;
    }
}

TEST_F(Fault, LatePromptKeepsTheTextAndLateAnswerItsOrder)
{
    faults.promptDelay = 3s;
    faults.answerDelay = 14s;
    EXPECT_EQ(say("AT+CMGS=+4791111111\rHei\x1a"
                  "AT\r",
                  2999ms),
              QByteArray());
    EXPECT_EQ(listen(1ms), kPrompt);
    EXPECT_EQ(listen(15'999ms), QByteArray());
    EXPECT_EQ(listen(1ms), kSent + kOk);
    EXPECT_EQ(delivered(), "Hei|");

    say("AT+CMGS=+4791111111\r");
    modem.lineClosed();
    EXPECT_EQ(say("AT\r", 5s), kOk) << "a prompt for nobody";
}

TEST_F(Fault, SplitsAnswersByTheCharacterAndRestartsWithItsStoredSettingsOrTheFactorys)
{
    int pieces = 0;
    modem.setOutput([&](const QByteArray &) { ++pieces; });
    addPersonality(faults, u"split"_qs);
    say("AT\r");
    EXPECT_EQ(pieces, kOk.size());

    for (const auto &[words, echo] : {std::pair{u"reset 1"_qs, ""}, {u"forget 1"_qs, "AT\r"}}) {
        ModemWorld world;
        world.say("AT&W\r");
        addPersonality(world.modem.faults(), words);
        EXPECT_EQ(world.submit(), kPrompt);
        EXPECT_EQ(world.say("AT\r"), echo + kOk);
        EXPECT_EQ(world.delivered(), QByteArray());
    }
}

} // namespace
