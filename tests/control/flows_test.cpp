#include "control/play.h"
#include "support/fake_resources.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using play::press;
using play::tickAsksRedraw;

TEST(Flow, IntroLoadsOnePicturePerTickThenTheMenuOpensPracticeAndItsFlight) {
    ScopedFakeResources files;
    play::seed(1);
    Controller c;
    const std::vector<std::string> order = {
        "asteroid.jpg", "station.gif", "ship.gif", "satellite.gif", "jupiter.jpg",
        "mars.jpg",     "venus.jpg",   "moon.jpg", "earth.jpg",     "sun.jpg"};
    for (std::size_t tick = 1; tick <= order.size(); ++tick) {
        EXPECT_TRUE(tickAsksRedraw(c)) << tick;
        ASSERT_EQ(files->requests.size(), tick);
        EXPECT_EQ(files->requests.back(), order[tick - 1]);
        EXPECT_EQ(c.mode, tick < 10 ? MODE_INTRO : MODE_MENU);
    }
    play::ticks(c, 5);
    EXPECT_EQ(files->requests.size(), order.size()); // nothing more loads

    press(c, kKeyDown);
    press(c, kKeyDown);
    press(c, kKeySpace);
    EXPECT_EQ(c.mode, MODE_LEVEL);
    EXPECT_EQ(c.level, 0);
    EXPECT_TRUE(tickAsksRedraw(c));  // the key's change shows at the next tick
    EXPECT_FALSE(tickAsksRedraw(c)); // and the briefing is still

    // The first Space opens the flight with the world stopped, the second starts it, a third
    // pauses it; each tick of the flight is redrawn.
    press(c, kKeySpace);
    EXPECT_EQ(c.mode, MODE_PLAY);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.game.elapsedTime, 0.0);
    press(c, kKeySpace);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.game.elapsedTime, 150.0);
    EXPECT_EQ(c.game.player.mainInfluence, &c.drawView.viewTarget);
    press(c, kKeySpace);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.game.elapsedTime, 150.0);
}

TEST(Flow, TabAndCrashFadeToWhiteAndBackToTheBriefing) {
    for (const bool crash : {false, true}) {
        SCOPED_TRACE(crash ? "crash" : "Tab");
        play::seed(2);
        Controller c;
        play::toFlight(c, 2, true);
        play::ticks(c, 3);
        if (crash) {
            // At rest 3000 km under Earth's surface.
            c.game.timeStep = 1.0;
            c.game.player.pos = c.game.earth.pos;
            c.game.player.pos.x += 3.0e6;
            EXPECT_TRUE(tickAsksRedraw(c));
            EXPECT_EQ(c.mode, MODE_COLLISION_FADE);
        } else {
            press(c, kKeyTab);
            EXPECT_EQ(c.mode, MODE_RESTART_FADE);
        }
        EXPECT_FALSE(c.game.running);
        const double elapsed = c.game.elapsedTime;
        for (int tick = 1; tick <= 7; ++tick) {
            EXPECT_TRUE(tickAsksRedraw(c)) << tick;
            EXPECT_EQ(c.counter, 8 - tick);
        }
        EXPECT_EQ(c.game.elapsedTime, elapsed); // the world stands still during the fade
        EXPECT_TRUE(tickAsksRedraw(c));
        if (crash) {
            // The message is drawn once and waits two seconds without redrawing.
            EXPECT_EQ(c.mode, MODE_COLLISION);
            for (int tick = 1; tick <= 59; ++tick)
                EXPECT_FALSE(tickAsksRedraw(c)) << tick;
            EXPECT_EQ(c.mode, MODE_COLLISION);
            EXPECT_TRUE(tickAsksRedraw(c));
        }
        EXPECT_EQ(c.mode, MODE_LEVEL);
        EXPECT_EQ(c.level, 2);
        EXPECT_EQ(c.game.elapsedTime, 0.0); // a fresh start
    }
}

TEST(Flow, ACompletedLevelLeadsToTheNextBriefingAndAfterTheLastToTheMenu) {
    for (const int level : {1, 8}) {
        for (const bool pressKey : {false, true}) {
            SCOPED_TRACE(testing::Message() << "level " << level << " key " << pressKey);
            play::seed(4);
            Controller c;
            play::toFlight(c, level, true);
            c.isCountingDown = true; // an orbit held to its last moment
            c.countDownTime = 0.0;
            EXPECT_TRUE(tickAsksRedraw(c));
            ASSERT_EQ(c.mode, MODE_LEVEL_COMPLETE);
            EXPECT_FALSE(c.game.running);
            if (pressKey) {
                press(c, kKeyDown);
            } else {
                for (int tick = 1; tick <= 199; ++tick) // the summary animates
                    ASSERT_TRUE(tickAsksRedraw(c)) << tick;
                EXPECT_EQ(c.mode, MODE_LEVEL_COMPLETE);
                EXPECT_TRUE(tickAsksRedraw(c));
            }
            EXPECT_EQ(c.mode, level == 8 ? MODE_MENU : MODE_LEVEL);
            EXPECT_EQ(c.level, level == 8 ? 8 : 2); // the set-up screen offers level 8 again
        }
    }
}

TEST(Modes, EachModeSetsItsCountAndStopsTheWorldOrNot) {
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
        Controller c;
        c.counter = 5;
        c.game.running = true;
        c.needsRedraw = false;
        c.setMode(k.mode);
        EXPECT_EQ(c.counter, k.counter) << k.mode;
        EXPECT_EQ(c.game.running, !k.stopsWorld) << k.mode;
        EXPECT_TRUE(c.needsRedraw) << k.mode;
    }
}

TEST(Modes, LevelStartFramesTheCameraOnItsBodyAndClearsTheAttempt) {
    // The scale the camera opens at, per level; 7 and 8 open on the station, the rest on Earth.
    const double scales[] = {1.2e8, 1.2e8, 2.5e7, 2.5e7, 2.5e7, 1.2e8, 2.5e7, 200.0, 200.0};
    for (int level = 0; level <= 8; ++level) {
        play::seed(7);
        Controller c;
        c.game.running = true;
        c.isCountingDown = true;
        c.isPartialObjectiveDone = true;
        c.desiredThrottle = 0.5;
        c.startLevel(level);
        EXPECT_EQ(c.mode, MODE_LEVEL);
        EXPECT_FALSE(c.game.running || c.isCountingDown || c.isPartialObjectiveDone) << level;
        EXPECT_EQ(c.desiredThrottle, level == 0 ? 0.2 : 1.0) << level;
        EXPECT_EQ(c.drawView.viewScale, scales[level]) << level;
        const Stellar& body = level >= 7 ? c.game.station : c.game.earth;
        EXPECT_STREQ(c.drawView.viewTarget.name, body.name);
        EXPECT_EQ(c.drawView.viewTarget.pos.x, body.pos.x) << level;
        // The camera starts on the body, not gliding in from the last place it looked at.
        EXPECT_EQ(c.drawView.viewCenter.x, body.pos.x) << level;
        EXPECT_EQ(c.drawView.viewCenter.y, body.pos.y) << level;
    }
}

} // namespace
} // namespace apsis
