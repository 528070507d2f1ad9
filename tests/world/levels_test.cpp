#include "world/seeded_game.h"

#include <gtest/gtest.h>
#include <limits>

namespace apsis {
namespace {

TEST(Levels, DifficultyScalesEngineTankAndLimitButNotThrottleOrStep) {
    struct Case {
        int level, difficulty;
        double acceleration, fuel, timeLimit, throttle, timeStep;
    };
    // The tank scales by f * f first: at Hard 0.8 * 0.8 is 0.6400000000000001.
    const Case cases[] = {
        {0, 1, 1.25, 49275000.0, 0.0, 0.2, 150.0},
        {4, 3, 0.16000000000000003, 10368.000000000002, 1382400.0, 1.0, 5.0},
        {5, 1, 0.125, 6750.0, 540000.0, 1.0, 300.0},
        {1, 0, 0.2, 4320.0, 0.0, 1.0, 150.0}, // unknown difficulties as Medium
    };
    // One world for all: each set-up must also clear what the one before left behind.
    auto game = seededGame(3, 1u);
    Player& ship = game->player;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.level);
        ship.fuel = 12.0;
        ship.isAccelerating = ship.isTurningLeft = ship.isTurningRight = true;
        game->elapsedTime = 5000.0;
        game->difficulty = c.difficulty;
        game->setLevel(c.level);
        EXPECT_EQ(ship.acceleration, c.acceleration);
        EXPECT_EQ(ship.fuel, c.fuel);
        EXPECT_EQ(ship.maxFuel, c.fuel);
        EXPECT_EQ(game->timeLimit, c.timeLimit);
        EXPECT_EQ(ship.throttle, c.throttle);
        EXPECT_EQ(game->timeStep, c.timeStep);
        EXPECT_EQ(game->elapsedTime, 0.0);
        EXPECT_FALSE(ship.isAccelerating || ship.isTurningLeft || ship.isTurningRight);
    }
}

TEST(Levels, EachLevelPlacesItsBodiesAndTheShip) {
    struct Case {
        int level;
        bool satellite, station, asteroid;
        double shipRadius;       // m from Earth's centre
        Stellar Game::*orbiting; // an optional body on a circular orbit, if any
        Stellar Game::*centre;
        double radius;
    };
    const Case cases[] = {
        {0, false, true, false, 26378000.0, &Game::station, &Game::earth, 42164000.0},
        {2, false, false, false, 6678000.0, nullptr, nullptr, 0.0},
        {4, true, false, false, 6678000.0, nullptr, nullptr, 0.0},
        {5, true, false, false, 42164000.0, &Game::satellite, &Game::earth, 42164000.0},
        {6, false, true, false, 6678000.0, &Game::station, &Game::moon, 3000000.0},
        {7, false, true, false, 7378000.0, &Game::station, &Game::earth, 7378000.0},
        {8, false, true, true, 42164000.0, &Game::station, &Game::earth, 42164000.0},
    };
    auto game = seededGame(8, 3u);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.level);
        game->setLevel(c.level);
        EXPECT_EQ(game->satellite.isActive, c.satellite);
        EXPECT_EQ(game->station.isActive, c.station);
        EXPECT_EQ(game->asteroid.isActive, c.asteroid);
        if (c.orbiting) {
            EXPECT_NEAR(distance((*game).*c.orbiting, (*game).*c.centre), c.radius, 1e-3);
        }
        EXPECT_NEAR(distance(game->player, game->earth), c.shipRadius, 1e-3);
        EXPECT_NEAR(distance(game->moon, game->earth), 3.8e8, 1e-3); // the Moon after Earth
        // In levels 7 and 8 the ship starts exactly at the station.
        EXPECT_EQ(samePosition(game->player.pos, game->station.pos), c.level >= 7);
    }
    // Level 4's satellite orbits nothing, even after a level that put it in orbit.
    game->setLevel(5);
    game->setLevel(4);
    EXPECT_EQ(game->satellite.mainInfluence, nullptr);
}

TEST(Levels, NumbersOutsideTheTableAreTheNearestLevel) {
    const int cases[][2] = {{-1, 0}, {std::numeric_limits<int>::min(), 0}, {9, 8}};
    for (const auto& [asked, played] : cases) {
        SCOPED_TRACE(asked);
        auto a = seededGame(asked, 31u);
        auto b = seededGame(played, 31u);
        EXPECT_TRUE(samePosition(a->player.pos, b->player.pos));
        EXPECT_EQ(a->player.fuel, b->player.fuel);
    }
}

} // namespace
} // namespace apsis
