#include "ModemWorld.h"
#include "platform/RuntimeFailure.h"
#include "simulator/Personalities.h"
#include "simulator/SimulatorConsole.h"

#include <QRegularExpression>

namespace {

struct Console : testing::Test {
    Console() { console.addDoor(u"+4790000001:Hovedport:no"_qs); }
    bool type(const char *line)
    {
        printed.clear();
        return console.command(QString::fromUtf8(line));
    }

    VirtualClock clock;
    QStringList printed;
    SimulatorConsole console{clock, u"+4799000000"_qs,
                             [this](const auto &line) { printed += line; }};
};

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
    for (const char *line :
         {"nonsense", "sms", "sms +4791111111", "fault", "fault nothing", "fault slow x",
          "fault slow -1", "fault refuse 500 2,5", "open", "open +4790000001",
          "open +4790000009 91234567", "alarm", "alarm +4790000009"}) {
        EXPECT_TRUE(type(line)) << line;
        EXPECT_EQ(printed.size(), 1) << line;
    }
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
