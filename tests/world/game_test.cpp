#include "world/seeded_game.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <utility>

namespace apsis {
namespace {

TEST(Game, TheRosterAsBuiltAndTheSunOnlySpins) {
    const Game built;
    // The masses and spins as E builds them, some a bit off their decimal literal.
    const std::pair<const Stellar*, double> masses[] = {
        {&built.sun, 1.98e+30},
        {&built.venus, 4.830000000000001e+24},
        {&built.earth, 5.98e+24},
        {&built.moon, 7.34e+22},
        {&built.mars, 6.369999999999999e+23},
        {&built.jupiter, 1.9000000000000004e+27},
        {&built.satellite, 0.0},
        {&built.player, 0.0},
    };
    for (const auto& [body, mass] : masses)
        EXPECT_EQ(body->mass, mass) << body->name;
    EXPECT_EQ(built.venus.pos.av, -2.991993003418851e-07);
    EXPECT_EQ(built.moon.pos.av, 2.662366655584571e-06);
    EXPECT_EQ(built.mars.cRadius, 3430000.0000000005);

    auto game = seededGame(2, 40u);
    // A five-hundredth of 1001 s is not the same double as 1001 s times 1/500.
    game->timeStep = 1001.0;
    game->elapsedTime = 10.0;
    double sunAngle = game->sun.pos.angle;
    for (int frame = 0; frame < 3; ++frame) {
        game->doFrame(2);
        for (int step = 0; step < 500; ++step)
            sunAngle = balance(sunAngle + game->sun.pos.av * (1001.0 / 500.0));
    }
    EXPECT_EQ(game->elapsedTime, 10.0 + 3 * 1001.0);
    const Position& sun = game->sun.pos; // nothing pulls the Sun
    EXPECT_TRUE(sun.x == 0.0 && sun.y == 0.0 && sun.vx == 0.0 && sun.vy == 0.0);
    EXPECT_EQ(game->sun.pos.angle, sunAngle);
}

// The table of pulls, read from the outside: move one massive body aside before a step and see
// which other bodies end the step differently. A body that is not pulled by the moved one, and
// not by anything that it pulls, must end bit for bit as it would have.
TEST(Game, EachBodyFeelsExactlyItsPulls) {
    const Stellar Game::*bodies[] = {&Game::venus,   &Game::earth,   &Game::moon,
                                     &Game::mars,    &Game::jupiter, &Game::satellite,
                                     &Game::station, &Game::asteroid};
    struct Case {
        Stellar Game::*moved;
        const char* changed; // per body above, then the ship: 1 when its step comes out differently
    };
    const Case cases[] = {
        {&Game::sun, "111111111"},
        {&Game::venus, "000000001"},
        // Earth pulls the Moon, and the Moon then pulls the satellite and the station.
        {&Game::earth, "001001101"},
        {&Game::moon, "000001101"}, // Earth does not feel the Moon
        {&Game::mars, "000000001"},
        {&Game::jupiter, "000000001"},
    };
    for (const Case& c : cases) {
        auto plain = seededGame(8, 5u);
        auto moved = seededGame(8, 5u);
        for (Game* game : {plain.get(), moved.get()}) {
            // Level 8 has the station and the asteroid; a satellite joins them.
            game->satellite.putInOrbitAround(game->earth, 9.0e7, 1.0);
            game->timeStep = 3600.0;
            game->player.isAccelerating = true;
        }
        ((*moved).*c.moved).pos.x += 1.0e9;
        plain->doFrame(8);
        moved->doFrame(8);
        SCOPED_TRACE(((*plain).*c.moved).name);
        for (int i = 0; i < 8; ++i) {
            if (bodies[i] == c.moved)
                continue;
            EXPECT_EQ(!samePosition(((*plain).*bodies[i]).pos, ((*moved).*bodies[i]).pos),
                      c.changed[i] == '1')
                << ((*plain).*bodies[i]).name;
        }
        EXPECT_EQ(!samePosition(plain->player.pos, moved->player.pos), c.changed[8] == '1');
    }
}

TEST(Game, InactiveBodiesStayExactlyWhereTheyWere) {
    auto game = seededGame(1, 9u);
    // Give the idle bodies a state of their own, as an earlier level would have left them.
    game->satellite.putInOrbitAround(game->earth, 4.2e7, 0.5);
    game->station.putInOrbitAround(game->moon, 3.0e6, 2.0);
    game->asteroid.putInOrbitAround(game->sun, 2.0e12, 4.0);
    Stellar* idle[] = {&game->satellite, &game->station, &game->asteroid};
    Position before[3];
    for (int i = 0; i < 3; ++i) {
        idle[i]->isActive = false;
        before[i] = idle[i]->pos;
    }
    for (int frame = 0; frame < 4; ++frame)
        game->doFrame(frame % 2 == 0 ? 1 : 4); // level 4's rule too moves only an active satellite
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(samePosition(idle[i]->pos, before[i])) << idle[i]->name;
}

TEST(Game, Level4HoldsTheSatelliteOnTheSunEarthLine) {
    auto game = seededGame(4, 21u);
    for (const double timeStep : {5.0, 86400.0, 1051200.0}) {
        game->timeStep = timeStep;
        game->doFrame(4);
        const Position& earth = game->earth.pos;
        const Position& satellite = game->satellite.pos;
        const double earthDistance = std::hypot(earth.x, earth.y);
        EXPECT_NEAR(std::hypot(satellite.x, satellite.y) / earthDistance, 0.9899706333, 1e-12);
        // On the line: no part of the satellite's place across the Sun-Earth direction.
        EXPECT_LT(std::fabs(satellite.x * earth.y - satellite.y * earth.x) / earthDistance, 1e-3);
        // Earth's velocity does not change after the satellite copies it.
        EXPECT_EQ(satellite.vx, 0.9899706333 * earth.vx) << timeStep;
        EXPECT_EQ(satellite.vy, 0.9899706333 * earth.vy) << timeStep;
    }
    // In any other level the same satellite is pulled like any small body.
    auto other = seededGame(4, 21u);
    other->doFrame(5);
    EXPECT_NE(other->satellite.pos.vx, 0.9899706333 * other->earth.pos.vx);
}

TEST(Flight, EarthComesBackAfterOnePeriodAndTheMoonStaysBoundThroughAYear) {
    auto game = seededGame(1, 1u);
    const Position start = game->earth.pos;
    const double radius = 1.49e11;
    const double period = kTwoPi * std::sqrt(radius * radius * radius / (G * game->sun.mass));
    game->timeStep = period / 30.0; // just under the largest step the controller allows
    for (int frame = 0; frame < 30; ++frame)
        game->doFrame(1);
    EXPECT_LT(std::sqrt(sqDist(game->earth.pos, start)), 0.005 * radius);
    EXPECT_NEAR(distance(game->earth, game->sun), radius, 0.005 * radius);

    game = seededGame(1, 4u);
    game->timeStep = 1051200.0;
    const double earthGm = G * game->earth.mass;
    for (int frame = 0; frame < 30; ++frame) {
        game->doFrame(1);
        const double r = distance(game->moon, game->earth);
        const double v = velDiff(game->moon.pos, game->earth.pos);
        EXPECT_LT(0.5 * v * v - earthGm / r, 0.0) << "unbound after frame " << frame;
        EXPECT_NEAR(r, 3.8e8, 0.1 * 3.8e8) << "frame " << frame;
    }
}

// The whole state of a world, folded into one number bit by bit.
std::uint64_t stateHash(const Game& game) {
    std::uint64_t hash = 14695981039346656037u;
    auto fold = [&hash](double value) {
        auto bits = std::bit_cast<std::uint64_t>(value);
        for (int byte = 0; byte < 8; ++byte, bits >>= 8)
            hash = (hash ^ (bits & 0xFFu)) * 1099511628211u;
    };
    for (const Stellar* body : {&game.sun, &game.venus, &game.earth, &game.moon, &game.mars,
                                &game.jupiter, &game.satellite, &game.station, &game.asteroid,
                                static_cast<const Stellar*>(&game.player)}) {
        for (const double value :
             {body->pos.x, body->pos.y, body->pos.vx, body->pos.vy, body->pos.angle, body->pos.av})
            fold(value);
    }
    fold(game.player.fuel);
    fold(game.player.targetAngle);
    fold(game.elapsedTime);
    return hash;
}

// The world step is fixed to the last bit: this pins the state after a seeded flight through
// every path of the step (planets, held satellite, pulled satellite, station, asteroid, a turning
// and burning ship with short and long sub-steps). A faster step must land on the same bits.
TEST(Flight, ASeededFlightEndsOnTheSameBits) {
    auto game = seededGame(8, 2024u);
    game->player.isAccelerating = true;
    game->player.isTurningLeft = true;
    for (const double timeStep : {1.0 / 3.0, 1001.0, 86400.0}) { // the last jumps the heading
        game->timeStep = timeStep;
        for (int frame = 0; frame < 6; ++frame)
            game->doFrame(8);
    }
    EXPECT_EQ(stateHash(*game), 11500203230544934832u);

    game->setLevel(4);
    game->player.isAccelerating = true;
    game->player.isTurningRight = true;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(4);
    game->setLevel(5);
    game->timeStep = 1051200.0;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(5);
    EXPECT_EQ(stateHash(*game), 268679354878406685u);
}

} // namespace
} // namespace apsis
