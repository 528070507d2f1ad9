#include "control/play.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

// A tank a burn has overdrawn reads as empty, and the engine stays off.
TEST(Keyboard, AnOverdrawnTankReadsAsEmpty) {
    Controller c;
    play::toStillFlight(c, 1, 6);
    Player& ship = c.game.player;
    ship.fuel = -0.5;
    c.keyDown(kKeyUp);
    EXPECT_EQ(ship.fuel, 0.0);
    EXPECT_FALSE(ship.isAccelerating);
}

} // namespace
} // namespace apsis
