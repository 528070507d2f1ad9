#include "control/play.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

constexpr double kLongest = 1051200.0;   // s per tick: a year per second of play
constexpr double kShortest = 1.0 / 30.0; // real time

TEST(HeldKeys, ZoomMovesTheViewAndTheClockAndTheIndicatorWrapsRound) {
    Controller c;
    play::toStillFlight(c, 1, 10); // 1.2e8 m across, 150 s per tick
    c.keyDown(kKeyW);
    EXPECT_EQ(c.drawView.zoomRect, 0.4);
    play::ticks(c, 8);
    EXPECT_NEAR(c.drawView.zoomRect, 0.909, 5e-4);
    c.doFrame(); // grown past the view, it starts again small
    EXPECT_EQ(c.drawView.zoomRect, 0.1);
    // The clock slows by the square root of the zoom.
    EXPECT_NEAR(c.game.timeStep / 150.0, std::sqrt(c.drawView.viewScale / 1.2e8), 1e-9);
    c.keyUp(kKeyW);
    c.keyDown(kKeyQ);
    EXPECT_EQ(c.drawView.zoomRect, 0.8);
    play::ticks(c, 21); // shrunk into the body, it starts again at the view's size
    EXPECT_EQ(c.drawView.zoomRect, 1.0);
}

TEST(HeldKeys, TheTimeStepStaysWithinItsBounds) {
    struct Case {
        double before; // s
        unsigned short key;
        double after; // s, two ticks later
    };
    const Case cases[] = {
        {1.0e6, kKeyS, kLongest},
        {kLongest, kKeyQ, kLongest},
        {0.035, kKeyA, kShortest},
        {kShortest, kKeyW, kShortest},
        {kShortest, kKeyS, kShortest / 0.95 / 0.95},
    };
    for (const Case& k : cases) {
        Controller c;
        play::toStillFlight(c, 1, 12);
        c.game.timeStep = k.before;
        c.keyDown(k.key);
        play::ticks(c, 2);
        EXPECT_EQ(c.game.timeStep, k.after) << k.before << " key " << k.key;
    }
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

TEST(HeldKeys, ThrottleKeysClampAndBecomeTheAskedForThrottle) {
    struct Case {
        double desired;
        bool up, down;
        double throttle, desiredAfter; // the craft's after one tick, and the asked-for
    };
    const Case cases[] = {
        {1.0, true, false, 1.0, 1.0},
        {0.5, false, true, 0.45, 0.45},
        {0.0011, false, true, 0.001, 0.001},
        {0.5, true, true, 0.5, 0.5},   // both held: up, then down
        {5.0, false, false, 1.0, 5.0}, // the asked-for throttle may leave the range
        {0.0001, true, false, 0.001 / 0.9, 0.001 / 0.9},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.desired << " up " << k.up << " down " << k.down);
        Controller c;
        play::toStillFlight(c, 3, 14);
        c.desiredThrottle = k.desired;
        c.isThrottlingUp = k.up;
        c.isThrottlingDown = k.down;
        c.doFrame();
        EXPECT_DOUBLE_EQ(c.game.player.throttle, k.throttle);
        EXPECT_DOUBLE_EQ(c.desiredThrottle, k.desiredAfter);
    }
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
