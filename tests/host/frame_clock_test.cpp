#include "host/frame_clock.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

constexpr std::int64_t kMs = 1'000'000;

// Fires every tick exactly when its timer says, as an idle machine would.
TEST(FrameClock, KeepsAnAverageOfExactlyThirtyTicksASecond) {
    FrameClock clock(0);
    std::int64_t now = clock.firstWait() * kMs;
    EXPECT_EQ(now, 34 * kMs); // the first tick is due at 33.3 ms
    for (int tick = 1; tick < 300; ++tick) {
        const int wait = clock.tick(now);
        EXPECT_GE(wait, 33);
        EXPECT_LE(wait, 34);
        now += wait * kMs;
    }
    // Tick 300 fires at 10 s to the millisecond: 30 a second, not the 30.3 of a plain 33 ms timer.
    EXPECT_EQ(now, 10'000 * kMs);
}

// A tick a little late is absorbed; one half a second late waits a whole period for the next,
// rather than firing the fourteen missed ticks back to back, and the new schedule holds.
TEST(FrameClock, AbsorbsLatenessWithoutDriftAndMakesUpNoMissedTicks) {
    EXPECT_EQ(FrameClock(0).tick(38 * kMs), 29); // 5 ms late: the next is due at 66.7 ms
    FrameClock clock(0);
    EXPECT_EQ(clock.tick(500 * kMs), 34);
    EXPECT_EQ(clock.tick(534 * kMs), 33);
}

} // namespace
} // namespace apsis
