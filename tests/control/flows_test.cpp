#include "control/play.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

using play::press;
using play::tickAsksRedraw;

TEST(ControllerFlow, FromTheIntroThroughTheMenuIntoPractice) {
    play::seed(1);
    Controller c;
    play::ticks(c, 10);
    ASSERT_EQ(c.mode, MODE_MENU);

    press(c, kKeyDown);
    press(c, kKeyDown);
    EXPECT_EQ(c.menuChoice, 3);
    press(c, kKeySpace);
    EXPECT_EQ(c.mode, MODE_LEVEL);
    EXPECT_EQ(c.level, 0);
    EXPECT_TRUE(tickAsksRedraw(c));  // the key's change shows at the next tick
    EXPECT_FALSE(tickAsksRedraw(c)); // and the briefing is still
    EXPECT_EQ(c.mode, MODE_LEVEL);

    // The first Space opens the flight with the world stopped: redrawn, but nothing moves.
    press(c, kKeySpace);
    EXPECT_EQ(c.mode, MODE_PLAY);
    EXPECT_FALSE(c.game.running);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.game.elapsedTime, 0.0);

    // The second starts it, a third pauses it again.
    press(c, kKeySpace);
    EXPECT_TRUE(c.game.running);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.game.elapsedTime, 150.0);
    EXPECT_EQ(c.game.player.mainInfluence, &c.drawView.viewTarget);
    press(c, kKeySpace);
    EXPECT_FALSE(c.game.running);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.game.elapsedTime, 150.0);
    EXPECT_EQ(c.mode, MODE_PLAY);
}

TEST(ControllerFlow, TabFadesToWhiteAndBackToTheBriefing) {
    play::seed(2);
    Controller c;
    play::toRunningFlight(c, 1);
    play::ticks(c, 3);
    ASSERT_EQ(c.game.elapsedTime, 450.0);

    press(c, kKeyTab);
    EXPECT_EQ(c.mode, MODE_RESTART_FADE);
    EXPECT_FALSE(c.game.running);
    for (int tick = 1; tick <= 7; ++tick) {
        SCOPED_TRACE(tick);
        EXPECT_TRUE(tickAsksRedraw(c));
        EXPECT_EQ(c.mode, MODE_RESTART_FADE);
        EXPECT_EQ(c.counter, 8 - tick);
        EXPECT_EQ(c.game.elapsedTime, 450.0); // the world stands still during the fade
    }
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.mode, MODE_LEVEL);
    EXPECT_EQ(c.level, 1);
    EXPECT_EQ(c.game.elapsedTime, 0.0); // a fresh start
}

TEST(ControllerFlow, ACrashFadesToTheCollisionMessageAndBackToTheBriefing) {
    play::seed(3);
    Controller c;
    play::toRunningFlight(c, 2);
    // Dropped at rest 3000 km under Earth's surface, the craft cannot climb out in one second.
    c.game.timeStep = 1.0;
    c.game.player.pos.x = c.game.earth.pos.x + 3.0e6;
    c.game.player.pos.y = c.game.earth.pos.y;
    c.game.player.pos.vx = c.game.earth.pos.vx;
    c.game.player.pos.vy = c.game.earth.pos.vy;

    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.mode, MODE_COLLISION_FADE);
    EXPECT_FALSE(c.game.running);
    for (int tick = 1; tick <= 7; ++tick)
        EXPECT_TRUE(tickAsksRedraw(c)) << tick;
    EXPECT_EQ(c.mode, MODE_COLLISION_FADE);

    // The message is drawn once, when it comes, and waits two seconds without redrawing.
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.mode, MODE_COLLISION);
    EXPECT_EQ(c.counter, 60);
    for (int tick = 1; tick <= 59; ++tick)
        EXPECT_FALSE(tickAsksRedraw(c)) << tick;
    EXPECT_EQ(c.mode, MODE_COLLISION);
    EXPECT_TRUE(tickAsksRedraw(c));
    EXPECT_EQ(c.mode, MODE_LEVEL);
    EXPECT_EQ(c.level, 2);
}

TEST(ControllerFlow, ACompletedLevelLeadsToTheNextBriefing) {
    struct Case {
        int level;
        bool pressKey; // continue at once instead of waiting for the screen to end
        MODE next;
        int nextLevel;
    };
    const Case cases[] = {
        {1, false, MODE_LEVEL, 2},
        {1, true, MODE_LEVEL, 2},
        {8, false, MODE_MENU, 8},
        {8, true, MODE_MENU, 8},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << "level " << k.level << " key " << k.pressKey);
        play::seed(4);
        Controller c;
        play::toRunningFlight(c, k.level);
        // An orbit held to its last moment.
        c.isCountingDown = true;
        c.countDownTime = 0.0;
        EXPECT_TRUE(tickAsksRedraw(c));
        ASSERT_EQ(c.mode, MODE_LEVEL_COMPLETE);
        EXPECT_FALSE(c.game.running);

        if (k.pressKey) {
            press(c, kKeyDown);
        } else {
            // The summary animates: every one of its 200 ticks is redrawn.
            for (int tick = 1; tick <= 199; ++tick)
                ASSERT_TRUE(tickAsksRedraw(c)) << tick;
            EXPECT_EQ(c.mode, MODE_LEVEL_COMPLETE);
            EXPECT_EQ(c.counter, 1);
            EXPECT_TRUE(tickAsksRedraw(c));
        }
        EXPECT_EQ(c.mode, k.next);
        EXPECT_EQ(c.level, k.nextLevel);
    }
}

} // namespace
} // namespace apsis
