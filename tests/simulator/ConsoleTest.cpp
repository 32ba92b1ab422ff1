#include "platform/RuntimeFailure.h"
#include "simulator/SimulatorConsole.h"
#include "support/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

TEST(Console, ObeysTellsAMistakeAndRefusesDoorsAndUsersThatCannotBe)
{
    VirtualClock clock;
    QStringList printed;
    SimulatorConsole console(clock, u"+4799000000"_qs,
                             [&](const QString &line) { printed += line; });
    console.addDoor(u"+4790000001:Hovedport:no:mk"_qs);
    console.addUser(u"+4790000001:91234567"_qs);
    console.addAdministrator(u"+4790000001:+4799000000"_qs);
    const std::pair<QString, QString> lines[] = {
        {u"open  +4790000001 +4791234567"_qs, u"Hovedport opens"_qs},
        {u"open +4790000001 91234568"_qs, u"Hovedport does not know the number"_qs},
        {u"alarm +4790000001"_qs, u"Hovedport tells 1 of the alarm"_qs},
        {u"nonsense"_qs, u"Unknown command nonsense"_qs},
    };
    for (const auto &[line, answer] : lines) {
        printed.clear();
        EXPECT_TRUE(console.command(line));
        EXPECT_TRUE(printed.join(u'|').startsWith(answer)) << printed.join(u'|').toStdString();
    }
    for (const char *line : {"sms", "sms +4791111111", "fault", "fault nothing", "fault slow x",
                             "fault slow -1", "fault refuse 500 2,5", "open", "open +4790000001",
                             "open +4790000009 91234567", "alarm", "alarm +4790000009"}) {
        printed.clear();
        EXPECT_TRUE(console.command(QString::fromUtf8(line))) << line;
        EXPECT_EQ(printed.size(), 1) << line;
    }
    EXPECT_FALSE(console.command(u"quit"_qs));
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
