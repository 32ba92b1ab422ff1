#include "modem/SendPace.h"

#include "support/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

struct Pace : testing::Test {
    VirtualClock clock;
    ModemFlags flags;
    int ticks = 0;
    SendPace pace{clock, flags, [this] { ++ticks; }};
};

TEST_F(Pace, SlowsDownByHalfAgainAndThenStraightToAMinute)
{
    pace.restart(2000ms);
    for (const int expected : {3000, 4500, 6750, 10125, 15188, 22782, 34173, 60000, 60000}) {
        pace.slowDown();
        EXPECT_EQ(pace.interval().count(), expected);
    }
}

TEST_F(Pace, RoundsHalvesToEvenAndGoesToAMinuteFromTwentyNineSeconds)
{
    for (const auto &[interval, slower] :
         {std::pair{3ms, 4ms}, std::pair{5ms, 8ms}, std::pair{28999ms, 43498ms},
          std::pair{29000ms, 60000ms}}) {
        pace.restart(interval);
        pace.slowDown();
        EXPECT_EQ(pace.interval(), slower);
    }
}

TEST_F(Pace, StandsOffAtTenSecondsAtFirst)
{
    EXPECT_FALSE(pace.isRunning());
    EXPECT_EQ(pace.interval(), 10000ms);
    clock.run(60s);
    EXPECT_EQ(ticks, 0);
}

TEST_F(Pace, StartsTheCountAfreshWithTheSameInterval)
{
    pace.restart(3000ms);
    clock.run(2999ms);
    pace.restart(3000ms);
    clock.run(2999ms);
    EXPECT_EQ(ticks, 0);
    clock.run(1ms);
    EXPECT_EQ(ticks, 1);
}

TEST_F(Pace, LeavesTheThirtySecondsBetweenMessagesAlone)
{
    pace.restart(30000ms);
    flags.QueuePending = true;
    pace.hurry();
    EXPECT_EQ(pace.interval(), 30000ms);
    flags.QueuePending = false;
    pace.hurry();
    EXPECT_EQ(pace.interval(), 3000ms);
}

} // namespace
