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
    // Halves go to the even number.
    for (const auto &[interval, slower] :
         {std::pair{3ms, 4ms}, std::pair{5ms, 8ms}, std::pair{28999ms, 43498ms},
          std::pair{29000ms, 60000ms}}) {
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
