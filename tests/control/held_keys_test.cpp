#include "control/play.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

constexpr double kLongest = 1051200.0; // s per tick: a year per second of play

// Zooming in slows the clock by the square root of the zoom; the zoom scenes of the screens
// golden test hold the zoom indicator.
TEST(HeldKeys, ZoomSlowsTheClockByTheSquareRootOfTheScale) {
    Controller c;
    play::toStillFlight(c, 1, 10); // 1.2e8 m across, 150 s per tick
    c.keyDown(kKeyW);
    play::ticks(c, 9);
    EXPECT_NEAR(c.game.timeStep / 150.0, std::sqrt(c.drawView.viewScale / 1.2e8), 1e-9);
}

TEST(HeldKeys, TimeKeysTradeThrottleForTimeEvenAtTheBound) {
    Controller c;
    play::toStillFlight(c, 1, 13);
    c.game.timeStep = kLongest;
    c.keyDown(kKeyS);
    play::ticks(c, 135); // 0.95^134 is just above a thousandth, 0.95^135 just below
    EXPECT_EQ(c.game.timeStep, kLongest);
    EXPECT_LT(c.desiredThrottle, 0.001);
    EXPECT_EQ(c.game.player.throttle, 0.001);
    c.keyUp(kKeyS);
    c.keyDown(kKeyA);
    c.doFrame();
    EXPECT_GT(c.desiredThrottle, 0.001);
    EXPECT_EQ(c.game.player.throttle, c.desiredThrottle);
    EXPECT_EQ(c.game.timeStep, kLongest * 0.95);
}

// From infinity or 0 the other key could never bring the scale back.
TEST(HeldKeys, HoldingAZoomKeyForMinutesNeverLosesTheScale) {
    for (const unsigned short key : {kKeyW, kKeyQ}) {
        Controller c;
        play::toStillFlight(c, 1, 20);
        c.keyDown(key);
        play::ticks(c, 9000);
        c.keyUp(key);
        const double held = c.drawView.viewScale;
        c.keyDown(key == kKeyW ? kKeyQ : kKeyW);
        play::ticks(c, 10);
        EXPECT_NE(c.drawView.viewScale, held) << "the other key no longer zooms after " << key;
    }
}

} // namespace
} // namespace apsis
