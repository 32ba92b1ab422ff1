#include "simulator/SimulatedModem.h"
#include "simulator/DoorUnit.h"
#include "simulator/Personalities.h"
#include "support/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kOk = "\r\nOK\r\n";
const QByteArray kPrompt = "\r\n> ";
const QByteArray kSent = "\r\n+CMGS: 0\r\n\r\nOK\r\n";
const QString kStranger = u"+4791111111"_qs;

/// A modem without echo on a network, what it said, and what reached the one other phone.
struct ModemWorld {
    ModemWorld()
    {
        modem.setOutput([this](const QByteArray &bytes) { said += bytes; });
        const auto take = [this](const SmsMessage &message) {
            received += message.text + '|';
            return true;
        };
        network.addPhone(kStranger, {take, {}});
        modem.receive("ATE0\rAT+CNMI=1,1\r");
    }
    /// What the modem says to these characters, at once and in the course of this time.
    QByteArray say(const QByteArray &bytes, milliseconds time = 0ms)
    {
        said.clear();
        modem.receive(bytes);
        clock.run(time);
        return std::exchange(said, {});
    }

    VirtualClock clock;
    SmsNetwork network{clock};
    SimulatedModem modem{clock, network, u"+4799000000"_qs};
    QByteArray said;
    QByteArray received;
};

struct SimulatedModemTest : testing::Test, ModemWorld {};

} // namespace

// Those that the whole program lives through as if nothing had happened: nobody else sees that
// they strike at all.
TEST_F(SimulatedModemTest, FaultStrikesWhereItShould)
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
        {"nomt", "AT+CPMS=\"MT\"\r", "\r\n+CMS ERROR: 303\r\n", ""},
        {"nosm", "AT+CPMS=\"SM\"\r", "\r\n+CMS ERROR: 303\r\n", ""},
        {"nodelete 1", "AT+CMGD=1\rAT+CMGD=1\r", "\r\nERROR\r\n" + kOk, ""},
        {"names", "AT+CMGL\r",
         QByteArray(listed).replace(",,", ",\"Nord\x0fs, Kari\",") + "\r\nInn\r\n" + kOk, ""},
        {"slow 0", "AT+CMGS=+4791111111\rHei\x1b", kPrompt + kOk, ""}, // taken back
        {"slow 0", "AT+CMGS=+4791111111\r" + QByteArray(161, 'x') + '\x1a',
         kPrompt + "\r\n+CMS ERROR: 305\r\n", ""},
    };
    for (const auto &[words, input, answer, texts] : strikes) {
        ModemWorld world;
        world.say("AT&W\r");
        world.network.send(kStranger, world.modem.ownNumber(), "Inn");
        world.clock.run(2s);
        addPersonality(world.modem.faults(), QString::fromUtf8(words));
        EXPECT_EQ(world.say(input, 2s), answer) << words;
        world.clock.run(10s);
        EXPECT_EQ(world.received, texts) << words;
    }
    for (const auto &[words, echo] : {std::pair{u"reset 1"_qs, ""}, {u"forget 1"_qs, "AT\r"}}) {
        ModemWorld world;
        world.say("AT&W\r");
        addPersonality(world.modem.faults(), words);
        EXPECT_EQ(world.say(submission, 2s), kPrompt);
        EXPECT_EQ(world.say("AT\r"), echo + kOk);
    }
}

TEST_F(SimulatedModemTest, DoorSaysAndDoesNothingToWhatIsNoCommand)
{
    DoorUnit door(network, u"+4790000001"_qs, u"Hovedport"_qs, DoorLanguage::Norwegian);
    door.seedUser(u"91234567"_qs, {DoorPeriod{{2027, 1, 5}, 8, {2027, 2, 5}, 16}});
    const DoorUnit::Users users = door.users();
    const DoorSettings settings = door.settings();
    for (const char *command :
         {"", "Hei, er du der?", "I 91234567", "I 91234567>26130100<26120324",
          "I 91234567>26120100<26120325", "I 91234567>26120100<261203", "I 9123456x*3", "U91234567",
          "\x01\x1b\xff",
          // Out of range or too long.
          "A0 91234567", "A8 91234567", "A1 9123456", "A1 9123456789", "A1 +4791234567",
          "A6 4790000001", "A7 07091525", "A7 070915", "V9", "V", "V10", "P 0", "P 123456", "P x",
          "r1", "r20", "r", "T0 x", "T7 x", "T6 1234567890123456", "B !123456789012345678901",
          // A mode's period of the other type, or none.
          "O 07:00-16:00*5", "O 24-16*5", "O 7-16*5", "O 07-16*8", "O 07-16", "N 07-16*5",
          // Another case, or another number of blanks.
          "k", "R5", "ar", "a1 91234567", "v1", "p 5", "t1 x", "A1", "A1  91234567", " AR", "K ",
          "T1", " N", "??"}) {
        network.send(kStranger, door.number(), command);
        clock.run(2min);
        EXPECT_EQ(received, QByteArray()) << command;
    }
    EXPECT_EQ(door.users(), users);
    EXPECT_EQ(door.settings(), settings);
}
