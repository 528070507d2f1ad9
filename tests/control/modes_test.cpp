#include "control/play.h"
#include "support/fake_resources.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using play::tickAsksRedraw;

TEST(ControllerIntro, LoadsOneBodyPicturePerTickThenShowsTheMenu) {
    ScopedFakeResources fake;
    Controller c;
    EXPECT_EQ(c.mode, MODE_INTRO);
    EXPECT_TRUE(c.needsRedraw); // the first tick always redraws
    EXPECT_STREQ(c.drawView.viewTarget.name, "Earth");

    const std::vector<std::string> order = {
        "asteroid.jpg", "station.gif", "ship.gif", "satellite.gif", "jupiter.jpg",
        "mars.jpg",     "venus.jpg",   "moon.jpg", "earth.jpg",     "sun.jpg"};
    for (std::size_t tick = 1; tick <= order.size(); ++tick) {
        SCOPED_TRACE(tick);
        EXPECT_TRUE(tickAsksRedraw(c));
        ASSERT_EQ(fake->requests.size(), tick);
        EXPECT_EQ(fake->requests.back(), order[tick - 1]);
        EXPECT_EQ(c.mode, tick < 10 ? MODE_INTRO : MODE_MENU);
    }
    EXPECT_EQ(c.counter, 0);
    // Later ticks load nothing more.
    play::ticks(c, 5);
    EXPECT_EQ(fake->requests.size(), order.size());
}

TEST(ControllerModes, EachModeSetsItsCountAndStopsTheWorldOrNot) {
    struct Case {
        MODE mode;
        int counter;
        bool stopsWorld;
    };
    const Case cases[] = {
        {MODE_INTRO, 0, false},
        {MODE_MENU, 0, true},
        {MODE_ABOUT, 0, true},
        {MODE_INSTRUCTIONS, 0, true},
        {MODE_LEVEL, 0, true},
        {MODE_CHOICE, 0, false},
        {MODE_PLAY, 0, false},
        {MODE_RESTART_FADE, 8, true},
        {MODE_COLLISION_FADE, 8, true},
        {MODE_COLLISION, 60, false},
        {MODE_LEVEL_COMPLETE, 200, true},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.mode);
        Controller c;
        c.counter = 5;
        c.game.running = true;
        c.needsRedraw = false;
        c.setMode(k.mode);
        EXPECT_EQ(c.mode, k.mode);
        EXPECT_EQ(c.counter, k.counter);
        EXPECT_EQ(c.game.running, !k.stopsWorld);
        EXPECT_TRUE(c.needsRedraw);
    }
}

TEST(ControllerModes, LevelStartFramesTheCameraOnItsBody) {
    struct Case {
        int level;
        double viewScale;
        const char* followed;
        double throttle;
    };
    // E(120, 6) is 1.2e8 m.
    const Case cases[] = {
        {0, 1.2e8, "Earth", 0.2}, {1, 1.2e8, "Earth", 1.0},   {2, 2.5e7, "Earth", 1.0},
        {3, 2.5e7, "Earth", 1.0}, {4, 2.5e7, "Earth", 1.0},   {5, 1.2e8, "Earth", 1.0},
        {6, 2.5e7, "Earth", 1.0}, {7, 200.0, "Station", 1.0}, {8, 200.0, "Station", 1.0},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.level);
        play::seed(7);
        Controller c;
        c.game.running = true;
        c.isCountingDown = true;
        c.isPartialObjectiveDone = true;
        c.desiredThrottle = 0.5;
        c.startLevel(k.level);

        EXPECT_EQ(c.mode, MODE_LEVEL);
        EXPECT_EQ(c.level, k.level);
        EXPECT_FALSE(c.game.running);
        EXPECT_FALSE(c.isCountingDown);
        EXPECT_FALSE(c.isPartialObjectiveDone);
        EXPECT_EQ(c.desiredThrottle, k.throttle);
        EXPECT_EQ(c.drawView.viewScale, k.viewScale);
        const Stellar& target = c.drawView.viewTarget;
        EXPECT_STREQ(target.name, k.followed);
        const Stellar& body = k.level >= 7 ? c.game.station : c.game.earth;
        EXPECT_EQ(target.pos.x, body.pos.x);
        EXPECT_EQ(target.pos.y, body.pos.y);
        // The camera starts on the body, not gliding in from the last place it looked at.
        const Position& center = c.drawView.viewCenter;
        EXPECT_EQ(center.x, body.pos.x);
        EXPECT_EQ(center.y, body.pos.y);
        EXPECT_EQ(center.vx, body.pos.vx);
        EXPECT_EQ(center.vy, body.pos.vy);
        EXPECT_EQ(center.angle, body.pos.angle);
        EXPECT_EQ(center.av, body.pos.av);
    }
}

TEST(ControllerModes, PastTheLastLevelTheMenuComesBack) {
    Controller c;
    c.startLevel(8);
    c.startLevel(9);
    EXPECT_EQ(c.mode, MODE_MENU);
    EXPECT_EQ(c.level, 8); // the set-up screen offers level 8 again
}

} // namespace
} // namespace apsis
