#include "control/play.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

constexpr double kLongest = 1051200.0;   // s per tick: a year per second of play
constexpr double kShortest = 1.0 / 30.0; // real time

TEST(HeldKeys, ZoomMovesTheViewTheClockAndTheIndicatorWhichWrapsRound) {
    play::seed(10);
    Controller c;
    play::toFlight(c, 1); // 1.2e8 m across, 150 s per tick
    c.keyDown(kKeyW);
    EXPECT_EQ(c.drawView.zoomRect, 0.4);
    // Zooming in, the indicator grows out of the body and starts again small past the view.
    const double growing[] = {0.443, 0.491, 0.544, 0.603, 0.668, 0.740, 0.820, 0.909, 0.1, 0.111};
    for (const double expected : growing) {
        c.doFrame();
        EXPECT_NEAR(c.drawView.zoomRect, expected, 5e-4);
    }
    EXPECT_NEAR(c.drawView.viewScale / 1.2e8, 0.3585, 1e-4);
    EXPECT_NEAR(c.game.timeStep / 150.0, std::sqrt(0.3585), 1e-4);
    c.keyUp(kKeyW);
    const double scale = c.drawView.viewScale;
    c.doFrame();
    EXPECT_EQ(c.drawView.zoomRect, 0.0); // released, the indicator goes; the zoom stays
    EXPECT_EQ(c.drawView.viewScale, scale);

    // Zooming out, it shrinks into the body and starts again at the view's size.
    c.keyDown(kKeyQ);
    EXPECT_EQ(c.drawView.zoomRect, 0.8);
    play::ticks(c, 20);
    EXPECT_GT(c.drawView.zoomRect, 0.1);
    EXPECT_LT(c.drawView.zoomRect, 0.11);
    c.doFrame();
    EXPECT_EQ(c.drawView.zoomRect, 1.0);

    // Both held cancel out.
    c.keyDown(kKeyW);
    const double both = c.drawView.viewScale;
    const double timeStep = c.game.timeStep;
    play::ticks(c, 10);
    EXPECT_NEAR(c.drawView.viewScale / both, 1.0, 1e-14);
    EXPECT_NEAR(c.game.timeStep / timeStep, 1.0, 1e-14);
}

TEST(HeldKeys, TheTimeStepStaysWithinItsBounds) {
    struct Case {
        double before; // s
        unsigned short key;
        int ticks;
        double after; // s
    };
    const Case cases[] = {
        {kLongest, kKeyS, 3, kLongest},        {1.0e6, kKeyS, 1, kLongest},
        {kLongest, kKeyQ, 1, kLongest},        {0.04, kKeyA, 5, kShortest},
        {kShortest, kKeyW, 2, kShortest},      {kShortest, kKeyS, 1, kShortest / 0.95},
        {kLongest, kKeyA, 1, kLongest * 0.95},
    };
    for (const Case& k : cases) {
        play::seed(12);
        Controller c;
        play::toFlight(c, 1);
        c.game.timeStep = k.before;
        c.keyDown(k.key);
        play::ticks(c, k.ticks);
        EXPECT_EQ(c.game.timeStep, k.after) << k.before << " key " << k.key;
    }
}

TEST(HeldKeys, TimeKeysTradeThrottleForTimeEvenAtTheBound) {
    play::seed(13);
    Controller c;
    play::toFlight(c, 1);
    c.game.timeStep = kLongest;
    c.keyDown(kKeyS);
    play::ticks(c, 134); // 0.95^134 is just above a thousandth, 0.95^135 just below
    EXPECT_EQ(c.game.timeStep, kLongest);
    EXPECT_GT(c.desiredThrottle, 0.001);
    EXPECT_EQ(c.game.player.throttle, c.desiredThrottle);
    c.doFrame();
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
        bool up;
        bool down;
        double throttle; // the craft's, after one tick
        double desiredAfter;
    };
    const Case cases[] = {
        {1.0, true, false, 1.0, 1.0},
        {0.5, false, true, 0.45, 0.45},
        {0.5, true, false, 0.5 / 0.9, 0.5 / 0.9},
        {0.0011, false, true, 0.001, 0.001},
        {0.5, true, true, 0.5, 0.5},   // both held: up, then down
        {5.0, false, false, 1.0, 5.0}, // the asked-for throttle may leave the range
        {0.0001, false, false, 0.001, 0.0001},
        {0.0001, true, false, 0.001 / 0.9, 0.001 / 0.9},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.desired << " up " << k.up << " down " << k.down);
        play::seed(14);
        Controller c;
        play::toFlight(c, 3);
        c.desiredThrottle = k.desired;
        c.isThrottlingUp = k.up;
        c.isThrottlingDown = k.down;
        c.doFrame();
        EXPECT_DOUBLE_EQ(c.game.player.throttle, k.throttle);
        EXPECT_DOUBLE_EQ(c.desiredThrottle, k.desiredAfter);
    }
}

} // namespace
} // namespace apsis
