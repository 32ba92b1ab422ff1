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
    // Halves go to the even number.
    for (const auto &[interval, slower] : {std::pair{2000ms, 3000ms},
                                           {3ms, 4ms},
                                           {5ms, 8ms},
                                           {10125ms, 15188ms},
                                           {15188ms, 22782ms},
                                           {28999ms, 43498ms},
                                           {29000ms, 60000ms},
                                           {60000ms, 60000ms}}) {
        pace.restart(interval);
        pace.slowDown();
        EXPECT_EQ(pace.interval(), slower);
    }
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

} // namespace
