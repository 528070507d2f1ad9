#include "world/seeded_game.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>

namespace apsis {
namespace {

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
