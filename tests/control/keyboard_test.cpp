#include "control/play.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

using play::press;

TEST(Keyboard, ArrowsCycleTheMenuTheLevelAndTheDifficulty) {
    enum Field { MenuChoice, Level, Difficulty };
    struct Case {
        MODE mode;
        Field field;
        int before;
        unsigned short key;
        int after;
    };
    const Case cases[] = {
        {MODE_MENU, MenuChoice, 4, kKeyDown, 1},   {MODE_MENU, MenuChoice, 4, kKeyRight, 1},
        {MODE_MENU, MenuChoice, 1, kKeyLeft, 4},   {MODE_MENU, MenuChoice, 1, kKeyUp, 4},
        {MODE_MENU, MenuChoice, 2, kKeyDown, 3},   {MODE_MENU, MenuChoice, 3, kKeyUp, 2},
        {MODE_CHOICE, Level, 8, kKeyDown, 1},      {MODE_CHOICE, Level, 1, kKeyUp, 8},
        {MODE_CHOICE, Level, 4, kKeyDown, 5},      {MODE_CHOICE, Difficulty, 3, kKeyRight, 1},
        {MODE_CHOICE, Difficulty, 1, kKeyLeft, 3}, {MODE_CHOICE, Difficulty, 2, kKeyLeft, 1},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.mode << " " << k.field << " " << k.before);
        Controller c;
        c.setMode(k.mode);
        int& field = k.field == MenuChoice ? c.menuChoice
                     : k.field == Level    ? c.level
                                           : c.game.difficulty;
        field = k.before;
        c.needsRedraw = false;
        press(c, k.key);
        EXPECT_EQ(field, k.after);
        EXPECT_EQ(c.mode, k.mode);
        EXPECT_TRUE(c.needsRedraw);
    }
}

// What a key does on the screens that react to any key, and where Escape leads after the screen
// has had its say.
TEST(Keyboard, ScreensThatTakeAnyKey) {
    struct Case {
        MODE mode;
        int level;          // the level played or offered
        int menuChoice;     // for the menu
        unsigned short key; // Tab and upper-case letters count as any key
        MODE next;
        int nextLevel;
        bool setsUpLevel; // the world is set up afresh on the way
    };
    const Case cases[] = {
        {MODE_INTRO, 1, 1, kKeySpace, MODE_INTRO, 1, false},
        {MODE_RESTART_FADE, 3, 1, kKeyTab, MODE_RESTART_FADE, 3, false},
        {MODE_COLLISION_FADE, 3, 1, kKeySpace, MODE_COLLISION_FADE, 3, false},
        {MODE_MENU, 1, 1, kKeyTab, MODE_ABOUT, 1, false},
        {MODE_MENU, 1, 2, 'W', MODE_INSTRUCTIONS, 1, false},
        {MODE_MENU, 1, 3, kKeySpace, MODE_LEVEL, 0, true},
        {MODE_MENU, 1, 4, kKeySpace, MODE_CHOICE, 1, false},
        {MODE_ABOUT, 1, 1, kKeyTab, MODE_MENU, 1, false},
        {MODE_INSTRUCTIONS, 1, 1, kKeyDown, MODE_MENU, 1, false},
        {MODE_CHOICE, 5, 1, kKeyTab, MODE_LEVEL, 5, true},
        {MODE_LEVEL, 5, 1, kKeyTab, MODE_PLAY, 5, false},
        {MODE_COLLISION, 6, 1, kKeyTab, MODE_LEVEL, 6, true},
        {MODE_LEVEL_COMPLETE, 6, 1, kKeyTab, MODE_LEVEL, 7, true},
        {MODE_LEVEL_COMPLETE, 8, 1, kKeySpace, MODE_MENU, 8, false},
        // Escape acts as any key first, then aborts to the menu; practice is never offered after.
        {MODE_MENU, 1, 3, kKeyEscape, MODE_MENU, 1, true},
        {MODE_CHOICE, 5, 1, kKeyEscape, MODE_MENU, 5, true},
        {MODE_COLLISION, 6, 1, kKeyEscape, MODE_MENU, 6, true},
        {MODE_LEVEL_COMPLETE, 6, 1, kKeyEscape, MODE_MENU, 7, true},
        {MODE_PLAY, 0, 1, kKeyEscape, MODE_MENU, 1, false},
        {MODE_INTRO, 1, 1, kKeyEscape, MODE_MENU, 1, false},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.mode << " key " << k.key);
        play::seed(5);
        Controller c;
        if (k.mode != MODE_INTRO) {
            c.startLevel(k.level);
            c.setMode(k.mode);
        }
        c.menuChoice = k.menuChoice;
        c.game.elapsedTime = 1.0; // cleared only by a level set-up
        c.keyDown(k.key);
        EXPECT_EQ(c.mode, k.next);
        EXPECT_EQ(c.level, k.nextLevel);
        EXPECT_FALSE(c.game.running);
        EXPECT_EQ(c.game.elapsedTime, k.setsUpLevel ? 0.0 : 1.0);
    }
}

TEST(Keyboard, FlightKeysSteerFireAndPause) {
    play::seed(6);
    Controller c;
    play::toFlight(c, 1);
    Player& ship = c.game.player;

    c.keyDown(kKeyUp);
    c.keyDown(kKeyLeft);
    c.keyDown(kKeyRight);
    EXPECT_TRUE(ship.isAccelerating);
    EXPECT_TRUE(ship.isTurningLeft);
    EXPECT_TRUE(ship.isTurningRight);
    c.keyUp(kKeyUp);
    c.keyUp(kKeyLeft);
    c.keyUp(kKeyRight);
    EXPECT_FALSE(ship.isAccelerating);
    EXPECT_FALSE(ship.isTurningLeft);
    EXPECT_FALSE(ship.isTurningRight);

    // A tank a burn has overdrawn reads as empty, and the engine stays off.
    ship.fuel = -0.5;
    c.keyDown(kKeyUp);
    EXPECT_EQ(ship.fuel, 0.0);
    EXPECT_FALSE(ship.isAccelerating);
    c.keyDown(kKeyUp);
    EXPECT_FALSE(ship.isAccelerating);

    // Down has no use in flight.
    press(c, kKeyDown);
    EXPECT_EQ(c.mode, MODE_PLAY);
    EXPECT_FALSE(c.game.running);

    // An arrow still held when the flight ends stays set: its release is heard only in flight,
    // and the next level set-up clears it.
    ship.fuel = 10.0;
    c.keyDown(kKeyLeft);
    c.keyDown(kKeyUp);
    press(c, kKeyTab);
    ASSERT_EQ(c.mode, MODE_RESTART_FADE);
    c.keyUp(kKeyLeft);
    c.keyUp(kKeyUp);
    EXPECT_TRUE(ship.isTurningLeft);
    EXPECT_TRUE(ship.isAccelerating);
    play::ticks(c, 8);
    EXPECT_EQ(c.mode, MODE_LEVEL);
    EXPECT_FALSE(ship.isTurningLeft);
    EXPECT_FALSE(ship.isAccelerating);
}

TEST(Keyboard, LettersRaiseTheirFlagsInEveryMode) {
    const MODE modes[] = {MODE_INTRO, MODE_MENU, MODE_CHOICE, MODE_PLAY, MODE_COLLISION};
    for (MODE mode : modes) {
        SCOPED_TRACE(mode);
        Controller c;
        c.setMode(mode);
        const bool* flags[] = {&c.isSlowingDown, &c.isSpeedingUp, &c.isThrottlingUp,
                               &c.isThrottlingDown};
        const unsigned short keys[] = {kKeyA, kKeyS, kKeyX, kKeyZ};
        for (int i = 0; i < 4; ++i) {
            c.keyDown(keys[i]);
            EXPECT_TRUE(*flags[i]) << keys[i];
            c.keyUp(keys[i]);
            EXPECT_FALSE(*flags[i]) << keys[i];
        }

        // The zoom indicator starts at its press size and goes only when neither zoom key is held.
        c.keyDown(kKeyW);
        EXPECT_TRUE(c.isZoomingIn);
        EXPECT_EQ(c.drawView.zoomRect, 0.4);
        c.keyDown(kKeyQ);
        EXPECT_TRUE(c.isZoomingOut);
        EXPECT_EQ(c.drawView.zoomRect, 0.8);
        c.keyUp(kKeyW);
        EXPECT_FALSE(c.isZoomingIn);
        EXPECT_EQ(c.drawView.zoomRect, 0.8);
        c.keyUp(kKeyQ);
        EXPECT_EQ(c.drawView.zoomRect, 0.0);
        c.keyDown(kKeyQ);
        c.keyDown(kKeyW);
        c.keyUp(kKeyQ);
        EXPECT_EQ(c.drawView.zoomRect, 0.4);
        c.keyUp(kKeyW);
        EXPECT_EQ(c.drawView.zoomRect, 0.0);

        // Upper case is another key.
        c.keyDown('W');
        EXPECT_FALSE(c.isZoomingIn);
    }

    // On the briefing a letter both starts the flight and raises its flag.
    play::seed(9);
    Controller c;
    c.startLevel(2);
    c.keyDown(kKeyW);
    EXPECT_EQ(c.mode, MODE_PLAY);
    EXPECT_TRUE(c.isZoomingIn);
}

} // namespace
} // namespace apsis
