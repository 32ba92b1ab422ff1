#include "ModemWorld.h"
#include "platform/RuntimeFailure.h"
#include "simulator/Personalities.h"
#include "simulator/SimulatorConsole.h"

#include <QRegularExpression>

namespace {

struct Console : testing::Test {
    Console()
    {
        console.modem().setOutput([this](const QByteArray &bytes) { said += bytes; });
        console.addDoor(u"+4790000001:Hovedport:no"_qs);
        console.addUser(u"+4790000001:91234567"_qs);
    }
    bool type(const char *line)
    {
        printed.clear();
        return console.command(QString::fromUtf8(line));
    }
    /// What the modem says at once and within two seconds.
    QByteArray say(const QByteArray &bytes)
    {
        said.clear();
        console.modem().receive(bytes);
        clock.run(2s);
        return said;
    }

    VirtualClock clock;
    QStringList printed;
    SimulatorConsole console{clock, u"+4799000000"_qs,
                             [this](const auto &line) { printed += line; }};
    QByteArray said;
};

TEST_F(Console, SendsAMessageFromAnybody)
{
    type("sms +4791111111   Hei på deg\\nto");
    clock.run(2s);
    EXPECT_TRUE(say("AT+CMGL=ALL\r").contains("\"+4791111111\",,"));
    EXPECT_TRUE(said.contains("\r\nHei p\x0f deg\nto\r\n"));
    EXPECT_EQ(printed, QStringList(u"sms +4791111111 -> +4799000000: Hei på deg\\nto"_qs));
}

TEST_F(Console, ShowsWhoIsOnTheDoors)
{
    type("doors");
    EXPECT_EQ(
        printed,
        (QStringList{u"+4790000001 Hovedport: 1 users"_qs,
                     u"  administrator -, assistants - - - - -, mode N, alarm V1, pulse 5 s"_qs,
                     u"  91234567, 2000-01-01 0:00 to 2099-12-31 24:00"_qs}));
}

TEST_F(Console, CallsADoorAndRaisesItsAlarm)
{
    console.addAdministrator(u"+4790000001:+4799000000"_qs);
    const std::pair<const char *, QString> commands[] = {
        {"open +4790000001 +4791234567", u"Hovedport opens"_qs},
        {"open  +4790000001  91234568", u"Hovedport does not know the number"_qs},
        {"alarm +4790000001", u"Hovedport tells 1 of the alarm"_qs},
    };
    for (const auto &[line, answer] : commands) {
        type(line);
        EXPECT_EQ(printed, QStringList(answer)) << line;
    }
    const auto &log = console.doors().front()->log();
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0].at, clock.now());
    clock.run(10s);
    EXPECT_TRUE(say("AT+CMGL=ALL\r").contains("\r\nALARM\r\n"));
}

TEST_F(Console, KnowsTheTypesOfDoors)
{
    const std::pair<QString, QString> doors[] = {{u"+4790000002:A:no"_qs, u"O 07-16*5"_qs},
                                                 {u"+4790000003:B:da:310"_qs, u"O 07-16*5"_qs},
                                                 {u"+4790000004:C:sv:mk"_qs, u"O 07:00-16:00*5"_qs},
                                                 {u"+4790000005:D:no:argon:brief"_qs, u"N"_qs}};
    for (const auto &[description, mode] : doors) {
        console.addDoor(description);
        for (const QByteArray command : {"O 07-16*5", "O 07:00-16:00*5"}) {
            say("AT+CMGS=" + description.left(11).toLatin1() + '\r' + command + '\x1a');
            clock.run(5s);
        }
        EXPECT_EQ(console.doors().back()->settings().mode, mode) << qPrintable(description);
    }
}

TEST_F(Console, BreaksTheModemUntilItIsCleared)
{
    type("fault mute");
    EXPECT_EQ(say("AT\r"), QByteArray());
    type("clear");
    EXPECT_EQ(say("ATE0\r"), "ATE0\r" + kOk);
    type("fault refuse 38 1");
    EXPECT_EQ(say("AT+CMGS=1\rHei\x1a"), kPrompt + "\r\n+CMS ERROR: 38\r\n");
    EXPECT_EQ(say("AT+CMGS=1\rHei\x1a"), kPrompt + kSent);
}

TEST_F(Console, TakesEveryFaultThatItsHelpNames)
{
    type("help");
    const QStringList faults = printed.filter(QRegularExpression(u"^  "_qs));
    EXPECT_EQ(faults.size(), static_cast<qsizetype>(kPersonalities.size()));
    for (const QString &line : faults) {
        type(qPrintable(u"fault "_qs + line.trimmed().section(u' ', 0, 0)));
        EXPECT_TRUE(printed.isEmpty()) << qPrintable(line);
    }
}

TEST_F(Console, TellsAMistakeAndGoesOn)
{
    for (const char *line : {"nonsense", "sms", "sms +4791111111", "fault", "fault nothing",
                             "fault slow x", "fault slow -1", "open", "open +4790000001",
                             "open +4790000009 91234567", "alarm", "alarm +4790000009"}) {
        EXPECT_TRUE(type(line)) << line;
        EXPECT_EQ(printed.size(), 1) << line;
    }
    EXPECT_TRUE(type("   "));
    EXPECT_TRUE(printed.isEmpty());
    EXPECT_FALSE(type("quit"));
}

TEST_F(Console, RefusesDoorsAndUsersThatCannotBe)
{
    for (const char *door :
         {"", "+4790000002", "+4790000002:Port", "+4790000002:Port:fi", ":Port:no",
          "+4790000002:Port:no:long", "+4790000002:Port:no:", "+4790000002:Port:no:mk:long",
          "+4790000001:Twice:no", "+4799000000:Modem:no"}) {
        EXPECT_THROW(console.addDoor(QString::fromUtf8(door)), RuntimeFailure) << door;
    }
    for (const char *user : {"", "+4790000001", "+4790000001:", "+4790000009:91234567"}) {
        EXPECT_THROW(console.addUser(QString::fromUtf8(user)), RuntimeFailure) << user;
        EXPECT_THROW(console.addAdministrator(QString::fromUtf8(user)), RuntimeFailure) << user;
    }
    EXPECT_EQ(console.doors().size(), 1u);
}

} // namespace
