#include "physics/numeric.h"
#include "world/game.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace apsis {
namespace {

bool samePosition(const Position& a, const Position& b) {
    return a.x == b.x && a.y == b.y && a.vx == b.vx && a.vy == b.vy && a.angle == b.angle &&
           a.av == b.av;
}

// A world set up for level at a fixed layout.
std::unique_ptr<Game> seededGame(int level, unsigned seed) {
    randSeedSet = true;
    std::srand(seed);
    auto game = std::make_unique<Game>();
    game->setLevel(level);
    return game;
}

TEST(Game, ABuiltWorldHoldsTheRosterAtRest) {
    const Game game;
    EXPECT_FALSE(game.running);
    EXPECT_EQ(game.timeStep, 600.0);
    EXPECT_EQ(game.elapsedTime, 0.0);
    EXPECT_EQ(game.timeLimit, 0.0);
    EXPECT_EQ(game.difficulty, 1);

    struct Row {
        const Stellar& body;
        const char* name;
        const char* picture;
        int spritesWide;
        double mass, size, cRadius, spin;
    };
    // The masses and sizes as E builds them, some a bit off their decimal literal.
    const Row roster[] = {
        {game.sun, "The Sun", "sun.jpg", 6, 1.98e+30, 1390000000.0, 695000000.0,
         6.283185307179586e-05},
        {game.venus, "Venus", "venus.jpg", 8, 4.830000000000001e+24, 12620000.0, 6310000.0,
         -2.991993003418851e-07},
        {game.earth, "Earth", "earth.jpg", 8, 5.98e+24, 12760000.0, 6380000.0,
         7.292123516990375e-05},
        {game.moon, "The Moon", "moon.jpg", 8, 7.34e+22, 3480000.0, 1740000.0,
         2.662366655584571e-06},
        {game.mars, "Mars", "mars.jpg", 8, 6.369999999999999e+23, 6860000.000000001,
         3430000.0000000005, 7.099644414892187e-05},
        {game.jupiter, "Jupiter", "jupiter.jpg", 8, 1.9000000000000004e+27, 143600000.0, 71800000.0,
         0.0001774911103723047},
        {game.satellite, "Satellite", "satellite.gif", 1, 0.0, 50.0, 2.0, 0.0},
        {game.station, "Station", "station.gif", 1, 0.0, 120.0, 10.0, 0.0},
        {game.asteroid, "Asteroid", "asteroid.jpg", 8, 0.0, 300.0, 150.0, 0.0017453292519943296},
        {game.player, "You", "ship.gif", 8, 0.0, 100.0, 2.0, 0.0},
    };
    for (const Row& row : roster) {
        SCOPED_TRACE(row.name);
        EXPECT_STREQ(row.body.name, row.name);
        EXPECT_STREQ(row.body.img.name, row.picture);
        EXPECT_EQ(row.body.img.spritesWide, row.spritesWide);
        EXPECT_EQ(row.body.mass, row.mass);
        EXPECT_EQ(row.body.size, row.size);
        EXPECT_EQ(row.body.cRadius, row.cRadius);
        EXPECT_EQ(row.body.pos.av, row.spin);
        const Position& at = row.body.pos;
        EXPECT_TRUE(at.x == 0.0 && at.y == 0.0 && at.vx == 0.0 && at.vy == 0.0 && at.angle == 0.0);
        EXPECT_TRUE(row.body.isActive);
        EXPECT_EQ(row.body.mainInfluence, nullptr);
    }
    EXPECT_STREQ(game.player.thrustImg.name, "ship.gif");
    EXPECT_EQ(game.player.fuel, 86400.0);
}

TEST(Game, AStepAdvancesTheClockAndOnlySpinsTheSun) {
    for (int level = 0; level <= 8; ++level) {
        SCOPED_TRACE(level);
        auto game = seededGame(level, 40u + static_cast<unsigned>(level));
        // A five-hundredth of 1001 s is not the same double as 1001 s times 1/500.
        game->timeStep = 1001.0;
        game->elapsedTime = 10.0;
        double sunAngle = game->sun.pos.angle;
        for (int frame = 0; frame < 3; ++frame) {
            game->doFrame(level);
            // 500 drifts of a five-hundredth of the step each, every one kept within the turn.
            for (int step = 0; step < 500; ++step)
                sunAngle = balance(sunAngle + game->sun.pos.av * (1001.0 / 500.0));
        }
        EXPECT_EQ(game->elapsedTime, 10.0 + 3 * 1001.0);
        EXPECT_EQ(game->sun.pos.x, 0.0);
        EXPECT_EQ(game->sun.pos.y, 0.0);
        EXPECT_EQ(game->sun.pos.vx, 0.0);
        EXPECT_EQ(game->sun.pos.vy, 0.0);
        EXPECT_EQ(game->sun.pos.angle, sunAngle);
        EXPECT_NEAR(sunAngle, std::fmod(3 * 1001.0 * kTwoPi / 100000.0, kTwoPi), 1e-12);
    }
}

// The table of pulls, read from the outside: move one massive body aside before a step and see
// which other bodies end the step differently. A body that is not pulled by the moved one, and
// not by anything that it pulls, must end bit for bit as it would have.
TEST(Game, EachBodyFeelsExactlyItsPulls) {
    enum Felt : unsigned {
        kVenus = 1u << 0,
        kEarth = 1u << 1,
        kMoon = 1u << 2,
        kMars = 1u << 3,
        kJupiter = 1u << 4,
        kSatellite = 1u << 5,
        kStation = 1u << 6,
        kAsteroid = 1u << 7,
        kShip = 1u << 8,
    };
    struct Case {
        const char* moved;
        Stellar Game::*body;
        unsigned changed; // the other bodies whose step comes out differently
    };
    const Case cases[] = {
        {"sun", &Game::sun,
         kVenus | kEarth | kMoon | kMars | kJupiter | kSatellite | kStation | kAsteroid | kShip},
        {"venus", &Game::venus, kShip},
        // Earth pulls the Moon, and the Moon then pulls the satellite and the station.
        {"earth", &Game::earth, kMoon | kSatellite | kStation | kShip},
        {"moon", &Game::moon, kSatellite | kStation | kShip}, // Earth does not feel the Moon
        {"mars", &Game::mars, kShip},
        {"jupiter", &Game::jupiter, kShip},
    };
    const std::pair<Felt, Stellar Game::*> others[] = {
        {kVenus, &Game::venus},     {kEarth, &Game::earth},       {kMoon, &Game::moon},
        {kMars, &Game::mars},       {kJupiter, &Game::jupiter},   {kSatellite, &Game::satellite},
        {kStation, &Game::station}, {kAsteroid, &Game::asteroid}, {kShip, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.moved);
        auto plain = seededGame(8, 5u);
        auto moved = seededGame(8, 5u);
        for (Game* game : {plain.get(), moved.get()}) {
            // Level 8 has the station and the asteroid; a satellite joins them.
            game->satellite.putInOrbitAround(game->earth, 9.0e7, 1.0);
            game->timeStep = 3600.0;
            game->player.isAccelerating = true;
        }
        ((*moved).*c.body).pos.x += 1.0e9;
        plain->doFrame(8);
        moved->doFrame(8);
        for (const auto& [flag, member] : others) {
            if (member == c.body)
                continue;
            const Position& before = member ? ((*plain).*member).pos : plain->player.pos;
            const Position& after = member ? ((*moved).*member).pos : moved->player.pos;
            const char* name = member ? ((*plain).*member).name : "You";
            EXPECT_EQ(!samePosition(before, after), (c.changed & flag) != 0) << name;
        }
    }
}

TEST(Game, InactiveBodiesStayExactlyWhereTheyWere) {
    auto game = seededGame(1, 9u);
    // Give the idle bodies a state of their own, as an earlier level would have left them.
    game->satellite.putInOrbitAround(game->earth, 4.2e7, 0.5);
    game->station.putInOrbitAround(game->moon, 3.0e6, 2.0);
    game->asteroid.putInOrbitAround(game->sun, 2.0e12, 4.0);
    for (Stellar* idle : {&game->satellite, &game->station, &game->asteroid})
        idle->isActive = false;
    const Position satellite = game->satellite.pos;
    const Position station = game->station.pos;
    const Position asteroid = game->asteroid.pos;
    for (int frame = 0; frame < 5; ++frame)
        game->doFrame(frame % 2 == 0 ? 1 : 4); // level 4's rule too moves only an active satellite
    EXPECT_TRUE(samePosition(game->satellite.pos, satellite));
    EXPECT_TRUE(samePosition(game->station.pos, station));
    EXPECT_TRUE(samePosition(game->asteroid.pos, asteroid));
}

TEST(Game, Level4HoldsTheSatelliteOnTheSunEarthLine) {
    auto game = seededGame(4, 21u);
    for (const double timeStep : {5.0, 600.0, 86400.0, 1051200.0}) {
        game->timeStep = timeStep;
        game->doFrame(4);
        const Position& earth = game->earth.pos;
        const Position& satellite = game->satellite.pos;
        const double earthDistance = std::hypot(earth.x, earth.y);
        const double ratio = std::hypot(satellite.x, satellite.y) / earthDistance;
        EXPECT_NEAR(ratio, 0.9899706333, 1e-12) << timeStep;
        // On the line: no part of the satellite's place across the Sun-Earth direction.
        const double across = (satellite.x * earth.y - satellite.y * earth.x) / earthDistance;
        EXPECT_LT(std::fabs(across), 1e-3) << timeStep;
        // Earth's velocity does not change after the satellite copies it.
        EXPECT_EQ(satellite.vx, 0.9899706333 * earth.vx) << timeStep;
        EXPECT_EQ(satellite.vy, 0.9899706333 * earth.vy) << timeStep;
    }

    // In any other level the same satellite is pulled like any small body.
    auto other = seededGame(4, 21u);
    other->doFrame(5);
    EXPECT_NE(other->satellite.pos.vx, 0.9899706333 * other->earth.pos.vx);
}

} // namespace
} // namespace apsis
