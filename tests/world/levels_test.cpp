#include "world/seeded_game.h"

#include <gtest/gtest.h>
#include <limits>

namespace apsis {
namespace {

TEST(Levels, ValuesAtEachDifficultyToTheLastBitAndUnknownOnesAsMedium) {
    struct Case {
        int level;
        double timeStep;
        double acceleration[3], fuel[3], timeLimit[3]; // Easy, Medium, Hard
    };
    // The tank scales by f * f first, then by the level's fuel: at Hard 0.8 * 0.8 is
    // 0.6400000000000001, which shows in the last digits.
    const Case cases[] = {
        {0, 150.0, {1.25, 1.0, 0.8}, {49275000.0, 31536000.0, 20183040.000000004}, {0, 0, 0}},
        {1,
         150.0,
         {0.25, 0.2, 0.16000000000000003},
         {6750.0, 4320.0, 2764.8000000000006},
         {0, 0, 0}},
        {2, 5.0, {0.25, 0.2, 0.16000000000000003}, {10125.0, 6480.0, 4147.200000000001}, {0, 0, 0}},
        {3,
         5.0,
         {0.25, 0.2, 0.16000000000000003},
         {27000.0, 17280.0, 11059.200000000003},
         {0, 0, 0}},
        {4,
         5.0,
         {0.25, 0.2, 0.16000000000000003},
         {25312.5, 16200.0, 10368.000000000002},
         {2160000.0, 1728000.0, 1382400.0}},
        {5,
         300.0,
         {0.125, 0.1, 0.08000000000000002},
         {6750.0, 4320.0, 2764.8000000000006},
         {540000.0, 432000.0, 345600.0}},
        {6,
         5.0,
         {0.25, 0.2, 0.16000000000000003},
         {27000.0, 17280.0, 11059.200000000003},
         {1080000.0, 864000.0, 691200.0}},
        {7,
         1.0 / 3.0,
         {0.25, 0.2, 0.16000000000000003},
         {50000.0, 32000.0, 20480.000000000004},
         {0, 0, 0}},
        {8,
         1.0 / 3.0,
         {0.125, 0.1, 0.08000000000000002},
         {337500.0, 216000.0, 138240.00000000003},
         {0, 0, 0}},
    };
    // One world for all: each set-up must also clear what the one before left behind.
    auto game = seededGame(3, 1u);
    for (const Case& c : cases) {
        for (const int difficulty : {1, 2, 3, 0, 4, std::numeric_limits<int>::max()}) {
            SCOPED_TRACE(testing::Message()
                         << "level " << c.level << ", difficulty " << difficulty);
            const int column = difficulty >= 1 && difficulty <= 3 ? difficulty - 1 : 1;
            Player& ship = game->player;
            ship.fuel = 12.0;
            ship.throttle = 0.4;
            ship.isAccelerating = ship.isTurningLeft = ship.isTurningRight = true;
            game->elapsedTime = 5000.0;
            game->difficulty = difficulty;
            game->setLevel(c.level);
            EXPECT_EQ(ship.acceleration, c.acceleration[column]);
            EXPECT_EQ(ship.fuel, c.fuel[column]);
            EXPECT_EQ(ship.maxFuel, c.fuel[column]);
            EXPECT_EQ(game->timeLimit, c.timeLimit[column]);
            EXPECT_EQ(game->timeStep, c.timeStep); // neither the step nor the throttle scales
            EXPECT_EQ(ship.throttle, c.level == 0 ? 0.2 : 1.0);
            EXPECT_EQ(game->elapsedTime, 0.0);
            EXPECT_FALSE(ship.isAccelerating || ship.isTurningLeft || ship.isTurningRight);
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
            EXPECT_NEAR(distance((*game).*c.orbiting, (*game).*c.centre), c.radius, 1e-3);
            EXPECT_EQ(((*game).*c.orbiting).mainInfluence, &((*game).*c.centre));
        }
        // The ship faces straight away from Earth and does not start turning.
        const Player& ship = game->player;
        const double r = distance(ship, game->earth);
        EXPECT_NEAR(r, c.shipRadius, 1e-3);
        EXPECT_NEAR(std::cos(ship.pos.angle), (ship.pos.x - game->earth.pos.x) / r, 1e-9);
        EXPECT_NEAR(std::sin(ship.pos.angle), (ship.pos.y - game->earth.pos.y) / r, 1e-9);
        EXPECT_EQ(ship.targetAngle, ship.pos.angle);
        // The planets on their orbits, the Moon around Earth's new place.
        EXPECT_NEAR(distance(game->venus, game->sun), 1.08e11, 1.0);
        EXPECT_NEAR(distance(game->earth, game->sun), 1.49e11, 1.0);
        EXPECT_NEAR(distance(game->moon, game->earth), 3.8e8, 1e-3);
        EXPECT_NEAR(distance(game->mars, game->sun), 2.28e11, 1.0);
        EXPECT_NEAR(distance(game->jupiter, game->sun), 7.78e11, 1.0);
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

    // Level 5: satellite and ship on one orbit, on opposite sides of Earth.
    game->setLevel(5);
    const Player& ship = game->player;
    EXPECT_NEAR(distance(satellite, ship), 84328000.0, 1e-3);
    EXPECT_NEAR((satellite.pos.vx - earth.pos.vx) + (ship.pos.vx - earth.pos.vx), 0.0, 1e-9);

    // Level 7 and 8: the ship starts at the station, exactly.
    for (const int level : {7, 8}) {
        game->setLevel(level);
        EXPECT_TRUE(samePosition(ship.pos, game->station.pos)) << level;
    }
    // Level 8: the asteroid 2e12 m out, with a third of its circular speed across the line to
    // the Sun and 10 km/s along it, inwards.
    const Position& asteroid = game->asteroid.pos;
    const double r = distance(game->asteroid, game->sun);
    EXPECT_NEAR(r, 2.0e12, 1.0);
    EXPECT_NEAR(-(asteroid.x * asteroid.vx + asteroid.y * asteroid.vy) / r, 10000.0, 1e-6);
    EXPECT_NEAR((asteroid.x * asteroid.vy - asteroid.y * asteroid.vx) / r,
                std::sqrt(G * game->sun.mass / 2.0e12) / 3.0, 1e-6);
}

TEST(Levels, LayoutsFollowTheSeedAndLevelNumbersAreClamped) {
    const int cases[][2] = {{-1, 0}, {std::numeric_limits<int>::min(), 0}, {9, 8}};
    for (const auto& [asked, played] : cases) {
        SCOPED_TRACE(asked);
        auto a = seededGame(asked, 31u);
        auto b = seededGame(played, 31u);
        for (Stellar Game::*body : {&Game::earth, &Game::moon, &Game::station, &Game::asteroid})
            EXPECT_TRUE(samePosition(((*a).*body).pos, ((*b).*body).pos));
        EXPECT_TRUE(samePosition(a->player.pos, b->player.pos));
        EXPECT_EQ(a->player.fuel, b->player.fuel);
    }
}

} // namespace
} // namespace apsis
