#pragma once

#include "physics/numeric.h"
#include "world/game.h"

#include <cmath>
#include <memory>

namespace apsis {

// A world set up for level at a layout fixed by seed.
inline std::unique_ptr<Game> seededGame(int level, unsigned seed, int difficulty = 1) {
    seedRandomAngles(seed);
    auto game = std::make_unique<Game>();
    game->difficulty = difficulty;
    game->setLevel(level);
    return game;
}

inline bool samePosition(const Position& a, const Position& b) {
    return a.x == b.x && a.y == b.y && a.vx == b.vx && a.vy == b.vy && a.angle == b.angle &&
           a.av == b.av;
}

inline double distance(const Stellar& a, const Stellar& b) {
    return std::sqrt(sqDist(a.pos, b.pos));
}

} // namespace apsis
