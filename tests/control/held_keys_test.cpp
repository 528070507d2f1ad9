#include "control/play.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

TEST(HeldKeys, ZoomInMovesTheViewTheClockAndTheIndicator) {
    play::seed(10);
    Controller c;
    play::toFlight(c, 1); // 1.2e8 m across, 150 s per tick
    c.keyDown(kKeyW);
    EXPECT_EQ(c.drawView.zoomRect, 0.4);

    // The indicator grows out of the body and starts again small once it passes the view's size.
    const double indicator[] = {0.443, 0.491, 0.544, 0.603, 0.668, 0.740, 0.820, 0.909, 0.1, 0.111};
    for (int tick = 0; tick < 10; ++tick) {
        c.doFrame();
        EXPECT_NEAR(c.drawView.zoomRect, indicator[tick], 5e-4) << tick + 1;
    }
    EXPECT_NEAR(c.drawView.viewScale / 1.2e8, 0.3585, 1e-4);
    EXPECT_NEAR(c.game.timeStep / 150.0, std::sqrt(0.3585), 1e-4);

    // Released, the indicator goes at once; the zoom stays.
    c.keyUp(kKeyW);
    const double scale = c.drawView.viewScale;
    c.doFrame();
    EXPECT_EQ(c.drawView.zoomRect, 0.0);
    EXPECT_EQ(c.drawView.viewScale, scale);
}

TEST(HeldKeys, ZoomOutShrinksTheIndicatorIntoTheBodyAndBothKeysCancel) {
    play::seed(11);
    Controller c;
    play::toFlight(c, 2);
    c.keyDown(kKeyQ);
    EXPECT_EQ(c.drawView.zoomRect, 0.8);
    play::ticks(c, 20);
    EXPECT_GT(c.drawView.zoomRect, 0.1);
    EXPECT_LT(c.drawView.zoomRect, 0.11);
    c.doFrame();
    EXPECT_EQ(c.drawView.zoomRect, 1.0);

    c.keyDown(kKeyW);
    const double scale = c.drawView.viewScale;
    const double timeStep = c.game.timeStep;
    play::ticks(c, 10);
    EXPECT_NEAR(c.drawView.viewScale / scale, 1.0, 1e-14);
    EXPECT_NEAR(c.game.timeStep / timeStep, 1.0, 1e-14);
}

TEST(HeldKeys, TheTimeStepStaysWithinItsBounds) {
    struct Case {
        double timeStep; // s, before
        unsigned short key;
        int ticks;
        double expected; // s, after
    };
    const double longest = 1051200.0;   // a year per second of play
    const double shortest = 1.0 / 30.0; // real time
    const Case cases[] = {
        {longest, kKeyS, 3, longest},        {1.0e6, kKeyS, 1, longest},
        {longest, kKeyQ, 1, longest},        {0.04, kKeyA, 5, shortest},
        {shortest, kKeyW, 2, shortest},      {shortest, kKeyS, 1, shortest / 0.95},
        {longest, kKeyA, 1, longest * 0.95},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.timeStep << " key " << k.key);
        play::seed(12);
        Controller c;
        play::toFlight(c, 1);
        c.game.timeStep = k.timeStep;
        c.keyDown(k.key);
        play::ticks(c, k.ticks);
        EXPECT_EQ(c.game.timeStep, k.expected);
    }
}

TEST(HeldKeys, TimeKeysTradeThrottleForTimeEvenAtTheBound) {
    play::seed(13);
    Controller c;
    play::toFlight(c, 1);
    c.game.timeStep = 1051200.0;
    c.keyDown(kKeyS);
    // 0.95^134 is just above a thousandth, 0.95^135 just below.
    play::ticks(c, 134);
    EXPECT_EQ(c.game.timeStep, 1051200.0);
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
    EXPECT_EQ(c.game.timeStep, 1051200.0 * 0.95);
}

TEST(HeldKeys, ThrottleKeysClampAndBecomeTheAskedForThrottle) {
    struct Case {
        double desired;
        bool up;
        bool down;
        double throttle; // the craft's, after one tick
        double desiredAfterward;
    };
    const Case cases[] = {
        {1.0, true, false, 1.0, 1.0}, // already full
        {0.5, false, true, 0.45, 0.45},        {0.5, true, false, 0.5 / 0.9, 0.5 / 0.9},
        {0.0011, false, true, 0.001, 0.001}, // never below a thousandth
        {0.5, true, true, 0.5, 0.5},         // both held: up, then down
        {5.0, false, false, 1.0, 5.0},       // the asked-for throttle may exceed the range
        {0.0001, false, false, 0.001, 0.0001}, {0.0001, true, false, 0.001 / 0.9, 0.001 / 0.9},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.desired << " up " << k.up << " down " << k.down);
        play::seed(14);
        Controller c;
        play::toFlight(c, 3);
        c.desiredThrottle = k.desired;
        if (k.up)
            c.keyDown(kKeyX);
        if (k.down)
            c.keyDown(kKeyZ);
        c.doFrame();
        EXPECT_DOUBLE_EQ(c.game.player.throttle, k.throttle);
        EXPECT_DOUBLE_EQ(c.desiredThrottle, k.desiredAfterward);
    }
}

} // namespace
} // namespace apsis
