#include "control/play.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

using play::press;

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

} // namespace
} // namespace apsis
