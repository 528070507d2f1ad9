#include "control/play.h"
#include "support/fake_resources.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

using play::press;
using play::tickAsksRedraw;

TEST(Flow, IntroLoadsOnePicturePerTickThenTheMenuOpensPracticeAndItsFlight) {
    ScopedFakeResources files;
    seedRandomAngles(1);
    Controller c;
    for (std::size_t tick = 1; tick <= 10; ++tick) {
        EXPECT_TRUE(tickAsksRedraw(c)) << tick;
        ASSERT_EQ(files->requests.size(), tick);
        EXPECT_EQ(c.mode, tick < 10 ? MODE_INTRO : MODE_MENU);
    }
    EXPECT_EQ(files->requests.back(), "sun.jpg"); // the Sun last, as the menu opens
    play::ticks(c, 5);
    EXPECT_EQ(files->requests.size(), 10u); // nothing more loads

    c.menuChoice = 3; // practice
    press(c, kKeySpace);
    EXPECT_TRUE(tickAsksRedraw(c));  // the key's change shows at the next tick
    EXPECT_FALSE(tickAsksRedraw(c)); // and the briefing is still
    // The camera starts on the level's body instead of gliding in.
    EXPECT_EQ(c.drawView.viewCenter.x, c.game.earth.pos.x);

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

TEST(Flow, TabAndCrashFadeToWhiteAndBackToAFreshBriefing) {
    for (const bool crash : {false, true}) {
        SCOPED_TRACE(crash ? "crash" : "Tab");
        Controller c;
        flySeeded(c, 2, 2);
        play::ticks(c, 3);
        c.isCountingDown = true; // a hold under way, cleared by the fresh start
        c.countDownTime = 1e9;
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
        const double elapsed = c.game.elapsedTime;
        for (int tick = 1; tick <= 7; ++tick)
            EXPECT_TRUE(tickAsksRedraw(c)) << tick;
        EXPECT_EQ(c.game.elapsedTime, elapsed); // the world stands still during the fade
        EXPECT_TRUE(tickAsksRedraw(c));
        if (crash) {
            // The message is drawn once and waits two seconds without redrawing.
            EXPECT_EQ(c.mode, MODE_COLLISION);
            for (int tick = 1; tick <= 59; ++tick)
                EXPECT_FALSE(tickAsksRedraw(c)) << tick;
            EXPECT_TRUE(tickAsksRedraw(c));
        }
        EXPECT_EQ(c.mode, MODE_LEVEL);
        EXPECT_EQ(c.level, 2);
        EXPECT_EQ(c.game.elapsedTime, 0.0);
        EXPECT_FALSE(c.isCountingDown);
    }
}

} // namespace
} // namespace apsis
