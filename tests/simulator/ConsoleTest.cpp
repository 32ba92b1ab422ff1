#include "ModemWorld.h"
#include "platform/RuntimeFailure.h"
#include "simulator/SimulatorConsole.h"

#include <gtest/gtest.h>

namespace {

struct ConsoleWorld {
    ConsoleWorld()
    {
        console.modem().setOutput([this](const QByteArray &bytes) { said += bytes; });
        console.addDoor(QStringLiteral("+4790000001:Hovedport:no"));
        console.addUser(QStringLiteral("+4790000001:91234567"));
    }
    bool type(const char *line) { return console.command(QString::fromUtf8(line)); }
    QByteArray say(const QByteArray &bytes)
    {
        said.clear();
        console.modem().receive(bytes);
        return said;
    }

    VirtualClock clock;
    QStringList printed;
    SimulatorConsole console{clock, QStringLiteral("+4799000000"),
                             [this](const QString &line) { printed += line; }};
    QByteArray said;
};

TEST(Console, SendsAMessageFromAnybody)
{
    ConsoleWorld world;
    world.type("sms +4791111111   Hei på deg\\nto");
    world.clock.run(2s);
    EXPECT_TRUE(world.say("AT+CMGL=ALL\r").contains("\"+4791111111\",,"));
    EXPECT_TRUE(world.said.contains("\r\nHei p\x0f deg\nto\r\n"));
    EXPECT_EQ(world.printed.last(),
              QStringLiteral("sms +4791111111 -> +4799000000: Hei på deg\\nto"));
}

TEST(Console, ShowsWhoIsOnTheDoors)
{
    ConsoleWorld world;
    world.type("doors");
    EXPECT_EQ(world.printed,
              (QStringList{QStringLiteral("+4790000001 Hovedport: 1 users"),
                           QStringLiteral("  91234567, 2000-01-01 0:00 to 2099-12-31 24:00")}));
}

TEST(Console, BreaksTheModemUntilItIsCleared)
{
    ConsoleWorld world;
    world.type("fault mute");
    EXPECT_EQ(world.say("AT\r"), QByteArray());
    world.type("clear");
    EXPECT_EQ(world.say("ATE0\r"), "ATE0\r\r\nOK\r\n");
    world.type("fault refuse 38 1");
    world.say("AT+CMGS=1\rHei\x1a");
    world.clock.run(2s);
    EXPECT_TRUE(world.said.contains("+CMS ERROR: 38"));
    world.say("AT+CMGS=1\rHei\x1a");
    world.clock.run(2s);
    EXPECT_TRUE(world.said.contains("+CMGS: 0"));
}

TEST(Console, TakesEveryFaultThatItsHelpNames)
{
    ConsoleWorld world;
    world.type("help");
    const QStringList lines = world.printed;
    int faults = 0;
    for (const QString &line : lines) {
        if (line.startsWith(u"  ")) {
            ++faults;
            world.printed.clear();
            world.console.command(QStringLiteral("fault ") + line.trimmed().section(u' ', 0, 0));
            EXPECT_TRUE(world.printed.isEmpty()) << qPrintable(line);
        }
    }
    EXPECT_EQ(faults, 12);
}

TEST(Console, TellsAMistakeAndGoesOn)
{
    for (const char *line : {"nonsense", "sms", "sms +4791111111", "fault", "fault nothing",
                             "fault slow x", "fault slow -1"}) {
        ConsoleWorld world;
        EXPECT_TRUE(world.type(line)) << line;
        EXPECT_EQ(world.printed.size(), 1) << line;
    }
    ConsoleWorld world;
    EXPECT_TRUE(world.type("   "));
    EXPECT_TRUE(world.printed.isEmpty());
    EXPECT_FALSE(world.type("quit"));
}

TEST(Console, RefusesDoorsAndUsersThatCannotBe)
{
    ConsoleWorld world;
    for (const char *door :
         {"", "+4790000002", "+4790000002:Port", "+4790000002:Port:fi", ":Port:no",
          "+4790000002:Port:no:long", "+4790000001:Twice:no", "+4799000000:Modem:no"}) {
        EXPECT_THROW(world.console.addDoor(QString::fromUtf8(door)), RuntimeFailure) << door;
    }
    for (const char *user : {"", "+4790000001", "+4790000001:", "+4790000009:91234567"}) {
        EXPECT_THROW(world.console.addUser(QString::fromUtf8(user)), RuntimeFailure) << user;
    }
    EXPECT_EQ(world.console.doors().size(), 1u);
}

} // namespace
