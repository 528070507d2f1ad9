#include "control/play.h"

#include <gtest/gtest.h>
#include <utility>

namespace apsis {
namespace {

using play::press;

TEST(Keyboard, ArrowsCycleTheMenuTheLevelAndTheDifficulty) {
    enum Field { Menu, Level, Difficulty };
    struct Case {
        Field field;
        int before;
        unsigned short key;
        int after;
    };
    const Case cases[] = {
        {Menu, 4, kKeyDown, 1}, {Menu, 4, kKeyRight, 1},       {Menu, 1, kKeyLeft, 4},
        {Menu, 3, kKeyUp, 2},   {Level, 8, kKeyDown, 1},       {Level, 7, kKeyDown, 8},
        {Level, 1, kKeyUp, 8},  {Difficulty, 3, kKeyRight, 1}, {Difficulty, 2, kKeyLeft, 1},
    };
    for (const Case& k : cases) {
        Controller c;
        const MODE mode = k.field == Menu ? MODE_MENU : MODE_CHOICE;
        c.setMode(mode);
        int& field = k.field == Menu    ? c.menuChoice
                     : k.field == Level ? c.level
                                        : c.game.difficulty;
        field = k.before;
        c.needsRedraw = false;
        press(c, k.key);
        EXPECT_EQ(field, k.after) << k.field << " " << k.before << " key " << k.key;
        EXPECT_EQ(c.mode, mode);
        EXPECT_TRUE(c.needsRedraw);
    }
}

// What a key does on the screens that take any key, and where Escape leads after the screen has
// had its say.
TEST(Keyboard, ScreensThatTakeAnyKeyThenEscape) {
    struct Case {
        MODE mode;
        int level;
        int menuChoice;
        unsigned short key; // Tab and upper-case letters count as any key
        MODE next;
        int nextLevel;
        bool setsUpLevel; // the world is set up afresh on the way
    };
    const Case cases[] = {
        {MODE_INTRO, 1, 1, kKeySpace, MODE_INTRO, 1, false},
        {MODE_RESTART_FADE, 3, 1, kKeyTab, MODE_RESTART_FADE, 3, false},
        {MODE_MENU, 1, 1, kKeyTab, MODE_ABOUT, 1, false},
        {MODE_MENU, 1, 2, 'W', MODE_INSTRUCTIONS, 1, false},
        {MODE_MENU, 1, 3, kKeySpace, MODE_LEVEL, 0, true},
        {MODE_MENU, 1, 4, kKeySpace, MODE_CHOICE, 1, false},
        {MODE_ABOUT, 1, 1, kKeyTab, MODE_MENU, 1, false},
        {MODE_CHOICE, 5, 1, kKeyTab, MODE_LEVEL, 5, true},
        {MODE_LEVEL, 5, 1, kKeyTab, MODE_PLAY, 5, false},
        {MODE_COLLISION, 6, 1, kKeyTab, MODE_LEVEL, 6, true},
        {MODE_LEVEL_COMPLETE, 6, 1, kKeyTab, MODE_LEVEL, 7, true},
        {MODE_LEVEL_COMPLETE, 8, 1, kKeySpace, MODE_MENU, 8, false},
        // Escape acts as any key first, then aborts to the menu; practice is never offered after.
        {MODE_MENU, 1, 3, kKeyEscape, MODE_MENU, 1, true},
        {MODE_PLAY, 0, 1, kKeyEscape, MODE_MENU, 1, false},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.mode << " key " << k.key);
        seedRandomAngles(5);
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

TEST(Keyboard, FlightArrowsAreLetGoOnlyInFlight) {
    Controller c;
    play::toStillFlight(c, 1, 6);
    Player& ship = c.game.player;
    for (const unsigned short key : {kKeyUp, kKeyLeft, kKeyRight})
        c.keyDown(key);
    EXPECT_TRUE(ship.isAccelerating && ship.isTurningLeft && ship.isTurningRight);
    for (const unsigned short key : {kKeyUp, kKeyLeft, kKeyRight})
        c.keyUp(key);
    EXPECT_FALSE(ship.isAccelerating || ship.isTurningLeft || ship.isTurningRight);

    // A tank a burn has overdrawn reads as empty, and the engine stays off.
    ship.fuel = -0.5;
    c.keyDown(kKeyUp);
    EXPECT_EQ(ship.fuel, 0.0);
    EXPECT_FALSE(ship.isAccelerating);

    // An arrow held when the flight ends stays set until the next level set-up clears it.
    ship.fuel = 10.0;
    c.keyDown(kKeyLeft);
    press(c, kKeyTab);
    c.keyUp(kKeyLeft);
    EXPECT_TRUE(ship.isTurningLeft);
    play::ticks(c, 8);
    EXPECT_EQ(c.mode, MODE_LEVEL);
    EXPECT_FALSE(ship.isTurningLeft);
}

// Even on the intro; on the briefing a letter both starts the flight and raises its flag.
TEST(Keyboard, LettersRaiseTheirFlagsInEveryMode) {
    seedRandomAngles(9);
    Controller c;
    const std::pair<unsigned short, bool*> letters[] = {
        {kKeyA, &c.isSlowingDown},    {kKeyS, &c.isSpeedingUp}, {kKeyX, &c.isThrottlingUp},
        {kKeyZ, &c.isThrottlingDown}, {kKeyW, &c.isZoomingIn},  {kKeyQ, &c.isZoomingOut}};
    for (const auto& [key, flag] : letters) {
        c.keyDown(key);
        EXPECT_TRUE(*flag) << key;
        c.keyUp(key);
        EXPECT_FALSE(*flag) << key;
    }
    // The zoom indicator goes only when neither zoom key is held.
    c.keyDown(kKeyW);
    c.keyDown(kKeyQ);
    c.keyUp(kKeyW);
    EXPECT_EQ(c.drawView.zoomRect, 0.8);
    c.keyUp(kKeyQ);
    EXPECT_EQ(c.drawView.zoomRect, 0.0);
    c.keyDown('W'); // upper case is another key
    EXPECT_FALSE(c.isZoomingIn);
    c.startLevel(2);
    c.keyDown(kKeyW);
    EXPECT_EQ(c.mode, MODE_PLAY);
    EXPECT_TRUE(c.isZoomingIn);
}

} // namespace
} // namespace apsis
