#include "physics/numeric.h"
#include "world/game.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace apsis {
namespace {

bool samePosition(const Position& a, const Position& b) {
    return a.x == b.x && a.y == b.y && a.vx == b.vx && a.vy == b.vy && a.angle == b.angle &&
           a.av == b.av;
}

double distance(const Stellar& a, const Stellar& b) {
    return std::sqrt(sqDist(a.pos, b.pos));
}

std::unique_ptr<Game> seededGame(int level, unsigned seed, int difficulty = 1) {
    randSeedSet = true;
    std::srand(seed);
    auto game = std::make_unique<Game>();
    game->difficulty = difficulty;
    game->setLevel(level);
    return game;
}

TEST(Levels, ValuesAtEachDifficultyToTheLastBit) {
    struct Case {
        int level, difficulty;
        double acceleration, fuel, timeLimit;
    };
    // The tank scales by f * f first, then by the level's fuel: at Hard 0.8 * 0.8 is
    // 0.6400000000000001, which shows in the last digits.
    const Case cases[] = {
        {0, 1, 1.25, 49275000.0, 0.0},
        {0, 2, 1.0, 31536000.0, 0.0},
        {0, 3, 0.8, 20183040.000000004, 0.0},
        {1, 1, 0.25, 6750.0, 0.0},
        {1, 2, 0.2, 4320.0, 0.0},
        {1, 3, 0.16000000000000003, 2764.8000000000006, 0.0},
        {2, 1, 0.25, 10125.0, 0.0},
        {2, 2, 0.2, 6480.0, 0.0},
        {2, 3, 0.16000000000000003, 4147.200000000001, 0.0},
        {3, 1, 0.25, 27000.0, 0.0},
        {3, 2, 0.2, 17280.0, 0.0},
        {3, 3, 0.16000000000000003, 11059.200000000003, 0.0},
        {4, 1, 0.25, 25312.5, 2160000.0},
        {4, 2, 0.2, 16200.0, 1728000.0},
        {4, 3, 0.16000000000000003, 10368.000000000002, 1382400.0},
        {5, 1, 0.125, 6750.0, 540000.0},
        {5, 2, 0.1, 4320.0, 432000.0},
        {5, 3, 0.08000000000000002, 2764.8000000000006, 345600.0},
        {6, 1, 0.25, 27000.0, 1080000.0},
        {6, 2, 0.2, 17280.0, 864000.0},
        {6, 3, 0.16000000000000003, 11059.200000000003, 691200.0},
        {7, 1, 0.25, 50000.0, 0.0},
        {7, 2, 0.2, 32000.0, 0.0},
        {7, 3, 0.16000000000000003, 20480.000000000004, 0.0},
        {8, 1, 0.125, 337500.0, 0.0},
        {8, 2, 0.1, 216000.0, 0.0},
        {8, 3, 0.08000000000000002, 138240.00000000003, 0.0},
    };
    // Neither the throttle nor the time step is scaled.
    const double timeSteps[] = {
        150.0, 150.0, 5.0, 5.0, 5.0, 300.0, 5.0, 0.3333333333333333, 0.3333333333333333};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "level " << c.level << ", difficulty " << c.difficulty);
        auto game = seededGame(c.level, 1u, c.difficulty);
        const Player& ship = game->player;
        EXPECT_EQ(ship.acceleration, c.acceleration);
        EXPECT_EQ(ship.fuel, c.fuel);
        EXPECT_EQ(ship.maxFuel, c.fuel);
        EXPECT_EQ(game->timeLimit, c.timeLimit);
        EXPECT_EQ(game->timeStep, timeSteps[c.level]);
        EXPECT_EQ(ship.throttle, c.level == 0 ? 0.2 : 1.0);
        EXPECT_EQ(game->elapsedTime, 0.0);
    }
}

TEST(Levels, AnUnknownDifficultyPlaysAsMedium) {
    for (const int difficulty : {0, 4, -1, std::numeric_limits<int>::max()}) {
        for (int level = 0; level <= 8; ++level) {
            auto odd = seededGame(level, 2u, difficulty);
            auto medium = seededGame(level, 2u, 2);
            EXPECT_EQ(odd->player.acceleration, medium->player.acceleration);
            EXPECT_EQ(odd->player.fuel, medium->player.fuel);
            EXPECT_EQ(odd->timeLimit, medium->timeLimit);
            EXPECT_EQ(odd->difficulty, difficulty); // read, never written
        }
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
        {1, false, false, false, 26378000.0, nullptr, nullptr, 0.0},
        {2, false, false, false, 6678000.0, nullptr, nullptr, 0.0},
        {3, false, false, false, 6678000.0, nullptr, nullptr, 0.0},
        {4, true, false, false, 6678000.0, nullptr, nullptr, 0.0},
        {5, true, false, false, 42164000.0, &Game::satellite, &Game::earth, 42164000.0},
        {6, false, true, false, 6678000.0, &Game::station, &Game::moon, 3000000.0},
        {7, false, true, false, 7378000.0, &Game::station, &Game::earth, 7378000.0},
        {8, false, true, true, 42164000.0, &Game::station, &Game::earth, 42164000.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "level " << c.level);
        auto game = seededGame(c.level, 3u + static_cast<unsigned>(c.level));
        EXPECT_EQ(game->satellite.isActive, c.satellite);
        EXPECT_EQ(game->station.isActive, c.station);
        EXPECT_EQ(game->asteroid.isActive, c.asteroid);
        if (c.orbiting) {
            const Stellar& body = (*game).*c.orbiting;
            const Stellar& centre = (*game).*c.centre;
            EXPECT_NEAR(distance(body, centre), c.radius, 1e-3);
            EXPECT_EQ(body.mainInfluence, &centre);
        }

        // The ship faces straight away from Earth and does not start turning.
        const Player& ship = game->player;
        const double r = distance(ship, game->earth);
        EXPECT_NEAR(r, c.shipRadius, 1e-3);
        EXPECT_NEAR(std::cos(ship.pos.angle), (ship.pos.x - game->earth.pos.x) / r, 1e-9);
        EXPECT_NEAR(std::sin(ship.pos.angle), (ship.pos.y - game->earth.pos.y) / r, 1e-9);
        EXPECT_EQ(ship.targetAngle, ship.pos.angle);
        EXPECT_EQ(ship.mainInfluence, &game->earth);
        EXPECT_FALSE(ship.isTurningLeft || ship.isTurningRight || ship.isAccelerating);

        // The planets on their orbits, the Moon around Earth's new place.
        EXPECT_NEAR(distance(game->venus, game->sun), 1.08e11, 1.0);
        EXPECT_NEAR(distance(game->earth, game->sun), 1.49e11, 1.0);
        EXPECT_NEAR(distance(game->moon, game->earth), 3.8e8, 1e-3);
        EXPECT_NEAR(distance(game->mars, game->sun), 2.28e11, 1.0);
        EXPECT_NEAR(distance(game->jupiter, game->sun), 7.78e11, 1.0);
        EXPECT_EQ(game->moon.mainInfluence, &game->earth);
    }
}

TEST(Levels, SpecialSetUps) {
    // Level 4: the satellite at fixed fractions of Earth's place and velocity, orbiting nothing,
    // even after a level that put it in orbit.
    auto game = seededGame(5, 17u);
    game->setLevel(4);
    const Stellar& earth = game->earth;
    const Stellar& satellite = game->satellite;
    EXPECT_EQ(satellite.pos.x, earth.pos.x * 0.990011198);
    EXPECT_EQ(satellite.pos.y, earth.pos.y * 0.990011198);
    EXPECT_EQ(satellite.pos.vx, earth.pos.vx * 0.9900111977);
    EXPECT_EQ(satellite.pos.vy, earth.pos.vy * 0.9900111977);
    EXPECT_EQ(satellite.mainInfluence, nullptr);
    EXPECT_NEAR(distance(satellite, earth), 1.488e9, 1e6);

    // Level 5: satellite and ship on one orbit, on opposite sides of Earth.
    game->setLevel(5);
    const Player& ship = game->player;
    EXPECT_NEAR(distance(game->satellite, ship), 84328000.0, 1e-3);
    EXPECT_NEAR((game->satellite.pos.vx - earth.pos.vx) + (ship.pos.vx - earth.pos.vx), 0.0, 1e-9);
    EXPECT_NEAR((game->satellite.pos.vy - earth.pos.vy) + (ship.pos.vy - earth.pos.vy), 0.0, 1e-9);

    // Level 7 and 8: the ship starts at the station, exactly.
    for (const int level : {7, 8}) {
        game->setLevel(level);
        EXPECT_TRUE(samePosition(ship.pos, game->station.pos)) << level;
    }

    // Level 8: the asteroid 2e12 m out, with a third of its circular speed across the line to
    // the Sun and 10 km/s along it, inwards.
    const Stellar& asteroid = game->asteroid;
    const double r = distance(asteroid, game->sun);
    EXPECT_NEAR(r, 2.0e12, 1.0);
    const double inward =
        -(asteroid.pos.x * asteroid.pos.vx + asteroid.pos.y * asteroid.pos.vy) / r;
    const double across = (asteroid.pos.x * asteroid.pos.vy - asteroid.pos.y * asteroid.pos.vx) / r;
    EXPECT_NEAR(inward, 10000.0, 1e-6);
    EXPECT_NEAR(across, std::sqrt(G * game->sun.mass / 2.0e12) / 3.0, 1e-6);
    EXPECT_EQ(asteroid.mainInfluence, &game->sun);
}

TEST(Levels, ARestartIsAFreshStartAtNewAngles) {
    auto game = seededGame(3, 23u);
    game->running = true;
    game->player.fuel = 12.0;
    game->player.throttle = 0.4;
    game->player.isAccelerating = true;
    game->player.isTurningRight = true;
    game->elapsedTime = 5000.0;
    game->timeStep = 99.0;
    const Position earthBefore = game->earth.pos;
    const Position sunBefore = game->sun.pos;

    game->setLevel(3);
    EXPECT_EQ(game->player.fuel, 27000.0);
    EXPECT_EQ(game->player.maxFuel, 27000.0);
    EXPECT_EQ(game->player.throttle, 1.0);
    EXPECT_FALSE(game->player.isAccelerating || game->player.isTurningRight);
    EXPECT_EQ(game->elapsedTime, 0.0);
    EXPECT_EQ(game->timeStep, 5.0);
    EXPECT_TRUE(game->running); // the controller stops the world, not the set-up
    EXPECT_NE(game->earth.pos.angle, earthBefore.angle);
    EXPECT_TRUE(samePosition(game->sun.pos, sunBefore));
    EXPECT_NEAR(distance(game->moon, game->earth), 3.8e8, 1e-3);
}

TEST(Levels, LayoutsFollowTheSeedAndLevelNumbersAreClamped) {
    struct Case {
        int asked, played;
    };
    const Case cases[] = {{2, 2},
                          {-1, 0},
                          {std::numeric_limits<int>::min(), 0},
                          {9, 8},
                          {std::numeric_limits<int>::max(), 8}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.asked);
        auto asked = seededGame(c.asked, 31u);
        auto played = seededGame(c.played, 31u);
        for (Stellar Game::*body :
             {&Game::venus, &Game::earth, &Game::moon, &Game::mars, &Game::jupiter,
              &Game::satellite, &Game::station, &Game::asteroid}) {
            EXPECT_TRUE(samePosition(((*asked).*body).pos, ((*played).*body).pos));
            EXPECT_EQ(((*asked).*body).isActive, ((*played).*body).isActive);
        }
        EXPECT_TRUE(samePosition(asked->player.pos, played->player.pos));
        EXPECT_EQ(asked->player.fuel, played->player.fuel);
        EXPECT_EQ(asked->timeStep, played->timeStep);
    }
}

} // namespace
} // namespace apsis
