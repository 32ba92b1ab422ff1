#include "support/World.h"

#include <gtest/gtest.h>

namespace {

const QString kUser = QStringLiteral("+4791234567");

struct RefusalCase {
    const char *name;
    bool reports;
    bool timeOut;
    const char *cmgs;  ///< of the row behind the failed submission
    const char *panel; ///< the outbound panel
    bool recovers;     ///< the row goes out once the fault is gone
};

// NUL, high bytes, an index out of range, a header that is none, half a line.
constexpr char kGarbage[] = "\0\xff\r\n+CMGL: 999,\r\n+CMTI\r\n+CMGL: 3\r\r\n'\"";

class Refusal : public testing::TestWithParam<RefusalCase> {};

} // namespace

TEST_P(Refusal, LeavesTheRowInItsState)
{
    const RefusalCase &refusal = GetParam();
    World world({.reports = refusal.reports});
    ModemFaults &faults = world.modem.faults();
    (refusal.timeOut ? faults.loseAnswer : faults.refuseSubmission) = FaultCount::always();
    // What the door did hear of a message whose answer was lost is another matter.
    world.door().setAnswerDelay(10h);

    world.registerUser(kUser);
    ASSERT_TRUE(
        world.runUntil([&] { return world.panel(3) == QString::fromLatin1(refusal.panel); }, 5min));

    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), QString::fromLatin1(refusal.cmgs));
    EXPECT_EQ(world.status(kUser), u"Ny");

    faults = {};
    world.door().setAnswerDelay(3s);
    EXPECT_EQ(world.runUntilStatus(kUser, u"Aktiv "_qs, 3min), refusal.recovers);
}

INSTANTIATE_TEST_SUITE_P(
    Submissions, Refusal,
    testing::Values(
        RefusalCase{"errorWithReports", true, false, "ERROR", "SMS SENDEFEIL", false},
        RefusalCase{"errorWithoutReports", false, false, "UNSENT", "SMS SENDEFEIL", true},
        RefusalCase{"timeOutWithReports", true, true, "Error", "SMS Sending TIMEOUT", false},
        RefusalCase{"timeOutWithoutReports", false, true, "UNSENT", "SMS Sending TIMEOUT", true}),
    [](const auto &refusalInfo) { return refusalInfo.param.name; });

TEST(Faults, GarbageOnTheLineIsSurvived)
{
    for (const auto line : {World::Line::Com, World::Line::Tcp}) {
        World world({.line = line});
        world.person.answers(u"Tallet er for stort"_qs); // the index above 255
        world.modem.inject(QByteArray(kGarbage, sizeof kGarbage - 1));
        world.clock.run(20s);
        world.modem.inject(QByteArray(10'000'000, 'x'));
        world.clock.run(30s);
        world.modem.inject("\r\n");
        world.clock.run(30s);

        world.registerUser(kUser);
        EXPECT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs));
    }
}
