#include "physics/numeric.h"
#include "physics/player.h"
#include "support/fake_resources.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

// A new ship facing and aiming at angle, engine off.
Player shipFacing(double angle) {
    Player ship("You", 0.0, 100.0, 2.0, "ship.gif", 8);
    ship.pos.angle = angle;
    ship.targetAngle = angle;
    return ship;
}

TEST(Player, BurnAddsAlongTheHeadingWhatItTakesFromTheTank) {
    Player ship = shipFacing(kHalfPi); // a full tank of 86400, half throttle
    ship.acceleration = 2.0;
    ship.isAccelerating = true;
    ship.pos.av = 0.3; // the ship never spins by itself
    ship.move(1.0);
    EXPECT_EQ(ship.pos.vy, 1.0);
    EXPECT_LT(std::fabs(ship.pos.vx), 1e-15);
    EXPECT_EQ(ship.fuel, 86399.0);
    EXPECT_EQ(ship.pos.y, 1.0); // drifted with the new velocity
    EXPECT_EQ(ship.pos.av, 0.0);
    // The tank runs dry: one overdraw, then the engine stops and the remainder is cleared.
    ship.fuel = 0.3;
    ship.move(1.0);
    EXPECT_DOUBLE_EQ(ship.fuel, -0.7);
    EXPECT_EQ(ship.pos.vy, 2.0);
    ship.move(1.0);
    EXPECT_EQ(ship.fuel, 0.0);
    EXPECT_FALSE(ship.isAccelerating);
    EXPECT_EQ(ship.pos.vy, 2.0);
    // throttle * acceleration * dt, in that order: the other way round it would be
    // 0.23099999999999998.
    Player exact = shipFacing(kHalfPi);
    exact.throttle = 0.3;
    exact.acceleration = 0.7;
    exact.isAccelerating = true;
    exact.move(1.1);
    EXPECT_EQ(exact.pos.vy, 0.231);

    // Thrust follows the heading as turned in the same sub-step, not the one before.
    Player turning = shipFacing(0.0);
    turning.targetAngle = 1.0;
    turning.isAccelerating = true;
    turning.move(1.0);
    EXPECT_EQ(turning.pos.angle, 0.1);
    EXPECT_EQ(turning.pos.vy, std::sin(0.1) * 0.5);
}

TEST(Player, TurningLeadsTheHeadingByAtMostAQuarterTurn) {
    for (const double sign : {1.0, -1.0}) { // left is counter-clockwise
        const bool left = sign > 0;
        Player ship = shipFacing(kPi);
        ship.isTurningLeft = left;
        ship.isTurningRight = !left;
        ship.move(0.0); // a sub-step of no time: only the target moves
        EXPECT_EQ(ship.targetAngle, kPi + sign * 0.0004);
        EXPECT_EQ(ship.pos.angle, kPi);
        int steps = 1;
        while (std::fabs(ship.targetAngle - ship.pos.angle) < kHalfPi && steps < 10000) {
            ship.move(0.0);
            ++steps;
        }
        EXPECT_EQ(steps, 3927); // pi/2 / 0.0004, rounded up
        const double held = ship.targetAngle;
        ship.move(0.0);
        EXPECT_EQ(ship.targetAngle, held);   // held at the limit...
        EXPECT_EQ(ship.isTurningLeft, left); // ...with the input still set
        EXPECT_EQ(ship.fuel, 86400.0);       // turning burns nothing
    }

    // An empty tank releases a turn input, but only while the target could still move.
    Player dry = shipFacing(1.0);
    dry.fuel = 0.0;
    dry.isTurningLeft = dry.isTurningRight = true;
    dry.move(0.5);
    EXPECT_FALSE(dry.isTurningLeft || dry.isTurningRight);
    EXPECT_EQ(dry.targetAngle, 1.0);
    Player ahead = shipFacing(1.0);
    ahead.targetAngle = 2.6;
    ahead.fuel = 0.0;
    ahead.isTurningLeft = true;
    ahead.move(0.0);
    EXPECT_TRUE(ahead.isTurningLeft);
}

TEST(Player, HeadingApproachesItsTargetAndWrapsWithIt) {
    struct Case {
        double angle, target, dt;
        double newAngle, newTarget;
    };
    const Case cases[] = {
        // 0.1 * gap * dt, in that order: 0.1 * dt * gap would be 0.119.
        {0.0, 0.7, 1.7, 0.11899999999999998, 0.7},
        // Above a turn both drop by 2*pi, so the gap survives.
        {6.28, 6.5, 1.0, 0.1 * (6.5 - 6.28) * 1.0 + 6.28 - kTwoPi, 6.5 - kTwoPi},
        // Sub-steps longer than pi seconds point the ship at its normalised target at once.
        {1.0, -0.25, 4.0, kTwoPi - 0.25, kTwoPi - 0.25},
        {1.0, 2.0, kPi, 0.1 * (2.0 - 1.0) * kPi + 1.0, 2.0}, // pi itself is not longer than pi
    };
    for (const Case& c : cases) {
        Player ship = shipFacing(c.angle);
        ship.targetAngle = c.target;
        ship.move(c.dt);
        EXPECT_EQ(ship.pos.angle, c.newAngle) << c.angle << " to " << c.target;
        EXPECT_EQ(ship.targetAngle, c.newTarget) << c.angle << " to " << c.target;
    }
}

TEST(Player, OrbitAimsWhereItFacesAndBurningShowsTheThrustSheet) {
    ScopedFakeResources fake;
    fake->addPicture("ship.gif", 512.0f, 512.0f);
    fake->addPicture("flame.gif", 256.0f, 256.0f);
    Stellar earth("Earth", E(5.98, 24), 1.0, 1.0, "earth.jpg", 8);
    Player ship("You", 0.0, 100.0, 2.0, "ship.gif", "flame.gif", 8);
    ship.targetAngle = 3.0;
    ship.putInOrbitAround(earth, 6678000.0, 0.0);
    EXPECT_EQ(ship.targetAngle, 0.0);
    seedRandomAngles(1);
    ship.putInOrbitAround(earth, 26378000.0);
    EXPECT_EQ(ship.targetAngle, ship.pos.angle);

    ship.pos.angle = 0.0; // frame 16
    EXPECT_EQ(ship.getImageRect(), (Rect{0.0f, 320.0f, 64.0f, 64.0f}));
    ship.isAccelerating = true;
    EXPECT_EQ(ship.getImageRect(), (Rect{0.0f, 160.0f, 32.0f, 32.0f}));
}

} // namespace
} // namespace apsis
