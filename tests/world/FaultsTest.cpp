#include "support/World.h"

#include <QAction>
#include <QPushButton>

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

TEST(Faults, MuteModemIsGivenUpAfterFiveAttemptsAndFoundAgainByHand)
{
    World world({.before = [](World &w) {
        w.modem.faults().mute = true;
        w.person.answers(u"Modem not found!!!"_qs);
    }});

    EXPECT_EQ(world.MSComm1.written.count("AT&F0"), 0);
    EXPECT_EQ(world.MSComm1.written.count("ATV1\r"), 5);
    EXPECT_FALSE(world.application().module().ModemReady);
    EXPECT_TRUE(world.modemLink().flags.ModemInitRunning) << "keeps the timers off the dead line";

    world.registerUser(kUser);
    world.clock.run(2min);
    EXPECT_EQ(world.status(kUser), u"-") << "nothing moves without a modem";

    world.modem.faults() = {};
    world.control<QAction>("mnuComPortCom1").trigger();
    EXPECT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs));
}

TEST(Faults, ComPortLostBetweenPromptAndTextLosesNoMessageAndShowsOneBox)
{
    World world;
    world.modem.faults().dropAtPrompt = FaultCount::times(1);
    world.registerUser(kUser);
    // The failing line is told once, however often the timer meets it while the box is open.
    world.person.answers(u"Forbindelsen med modemet er brutt"_qs, Answer::Ok, 1min);
    ASSERT_TRUE(world.runUntil([&] { return !world.person.texts.isEmpty(); }, 3min));
    EXPECT_EQ(world.person.texts.size(), 1);
    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"UNSENT");

    world.MSComm1.plugIn();
    world.control<QAction>("mnuComPortCom1").trigger();
    EXPECT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs));
}

TEST(Faults, NetworkLineDroppedBetweenPromptAndTextLosesNoMessage)
{
    World world({.line = World::Line::Tcp});
    world.modem.faults().dropAtPrompt = FaultCount::times(1);
    world.registerUser(kUser);

    ASSERT_TRUE(world.runUntil([&] { return world.panel(3) == u"SMS Sending TIMEOUT"; }, 5min));
    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"UNSENT");

    world.person.answers(u"Kobler til: "_qs);
    world.click("cmdConnect");
    EXPECT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs));
}

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
