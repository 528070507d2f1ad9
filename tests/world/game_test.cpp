#include "support/golden.h"
#include "world/seeded_game.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace apsis {
namespace {

// The whole state of a world to the last bit: one body a line, then the craft's own numbers.
std::string stateText(const Game& game) {
    std::string text;
    char line[400];
    for (const Stellar* body : {&game.sun, &game.venus, &game.earth, &game.moon, &game.mars,
                                &game.jupiter, &game.satellite, &game.station, &game.asteroid,
                                static_cast<const Stellar*>(&game.player)}) {
        const Position& p = body->pos;
        std::snprintf(line, sizeof line,
                      "%s: x %.17g y %.17g vx %.17g vy %.17g angle %.17g av %.17g\n", body->name,
                      p.x, p.y, p.vx, p.vy, p.angle, p.av);
        text += line;
    }
    std::snprintf(line, sizeof line, "fuel %.17g targetAngle %.17g elapsedTime %.17g\n",
                  game.player.fuel, game.player.targetAngle, game.elapsedTime);
    return text + line;
}

// The world step is fixed to the last bit: the golden file tests/golden/world/ pins the state
// after a seeded flight through every path of the step (planets, held satellite, pulled satellite,
// station, asteroid, a turning and burning ship with short and long sub-steps). A faster step must
// land on the same bits.
TEST(Flight, ASeededFlightEndsOnTheSameBits) {
    auto game = seededGame(8, 2024u);
    game->player.isAccelerating = true;
    game->player.isTurningLeft = true;
    for (const double timeStep : {1.0 / 3.0, 1001.0, 86400.0}) { // the last jumps the heading
        game->timeStep = timeStep;
        for (int frame = 0; frame < 6; ++frame)
            game->doFrame(8);
    }
    expectMatchesGolden("world/flight-level8", stateText(*game));

    game->setLevel(4);
    game->player.isAccelerating = true;
    game->player.isTurningRight = true;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(4);
    game->setLevel(5);
    game->timeStep = 1051200.0;
    for (int frame = 0; frame < 6; ++frame)
        game->doFrame(5);
    expectMatchesGolden("world/flight-levels4-and-5", stateText(*game));
}

} // namespace
} // namespace apsis
