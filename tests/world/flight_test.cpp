#include "physics/numeric.h"
#include "world/game.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

namespace apsis {
namespace {

std::unique_ptr<Game> seededGame(int level, unsigned seed) {
    randSeedSet = true;
    std::srand(seed);
    auto game = std::make_unique<Game>();
    game->setLevel(level);
    return game;
}

double distance(const Position& a, const Position& b) {
    return std::sqrt(sqDist(a, b));
}

TEST(Flight, EarthComesBackAfterOneYearAtTheLargestTimeStep) {
    for (const unsigned seed : {1u, 2u, 3u}) {
        auto game = seededGame(1, seed);
        const Position start = game->earth.pos;
        const double radius = 1.49e11;
        const double period = kTwoPi * std::sqrt(radius * radius * radius / (G * game->sun.mass));
        game->timeStep = period / 30.0; // just under the largest step the controller allows
        for (int frame = 0; frame < 30; ++frame)
            game->doFrame(1);
        EXPECT_LT(distance(game->earth.pos, start), 0.005 * radius) << seed;
        EXPECT_NEAR(distance(game->earth.pos, game->sun.pos), radius, 0.005 * radius) << seed;
    }
}

TEST(Flight, TheMoonStaysWithEarthThroughAYearAtTheLargestTimeStep) {
    auto game = seededGame(1, 4u);
    game->timeStep = 1051200.0;
    const double earthGm = G * game->earth.mass;
    for (int frame = 0; frame < 30; ++frame) {
        game->doFrame(1);
        const double r = distance(game->moon.pos, game->earth.pos);
        const double v = velDiff(game->moon.pos, game->earth.pos);
        EXPECT_LT(0.5 * v * v - earthGm / r, 0.0) << "unbound after frame " << frame;
        EXPECT_NEAR(r, 3.8e8, 0.1 * 3.8e8) << "frame " << frame;
    }
    EXPECT_EQ(game->elapsedTime, 30 * 1051200.0);
}

TEST(Flight, ABurnAlongTheOrbitRaisesItByTheFuelItTakes) {
    // Level 2 at Easy: 0.25 m/s^2 at full throttle, for 120 s.
    auto game = seededGame(2, 8u);
    const double earthGm = G * game->earth.mass;
    auto orbitalEnergy = [&game, earthGm] {
        const double v = velDiff(game->player.pos, game->earth.pos);
        return 0.5 * v * v - earthGm / distance(game->player.pos, game->earth.pos);
    };
    const double speed = velDiff(game->player.pos, game->earth.pos);
    const double energyBefore = orbitalEnergy();
    // The ship starts facing away from Earth; a quarter turn to the left it faces along its
    // counter-clockwise orbit.
    game->player.pos.angle = balance(game->player.pos.angle + kHalfPi);
    game->player.targetAngle = game->player.pos.angle;
    game->player.isAccelerating = true;
    game->timeStep = 120.0;
    game->doFrame(2);
    const double burnt = game->player.maxFuel - game->player.fuel;
    EXPECT_NEAR(burnt, 0.25 * 120.0, 1e-9);
    // Nearly all of it goes into the orbit: the ship travels a tenth of a radian meanwhile.
    EXPECT_NEAR(orbitalEnergy() - energyBefore, speed * burnt, 0.01 * speed * burnt);
}

// The whole state of a world, folded into one number bit by bit.
std::uint64_t stateHash(const Game& game) {
    std::uint64_t hash = 14695981039346656037u;
    auto fold = [&hash](double value) {
        auto bits = std::bit_cast<std::uint64_t>(value);
        for (int byte = 0; byte < 8; ++byte) {
            hash ^= bits & 0xFFu;
            hash *= 1099511628211u;
            bits >>= 8;
        }
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
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(8);
    game->timeStep = 1001.0;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(8);
    game->timeStep = 86400.0; // sub-steps longer than pi seconds: the heading jumps
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(8);
    const std::uint64_t afterLevel8 = stateHash(*game);

    game->setLevel(4);
    game->player.isAccelerating = true;
    game->player.isTurningRight = true;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(4);
    game->setLevel(5);
    game->timeStep = 1051200.0;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(5);
    const std::uint64_t afterLevel5 = stateHash(*game);

    EXPECT_EQ(afterLevel8, 11500203230544934832u);
    EXPECT_EQ(afterLevel5, 268679354878406685u);
}

} // namespace
} // namespace apsis
