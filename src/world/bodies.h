#pragma once

#include "world/game.h"

#include <iterator>

namespace apsis {

// The shape of the world: its nine bodies, and the sets of them that the rules single out. The
// craft is not among them.

using BodyMember = Stellar Game::*;

// Every body, in the order the world holds them.
inline constexpr BodyMember kBodies[] = {
    &Game::sun,     &Game::venus,     &Game::earth,   &Game::moon,     &Game::mars,
    &Game::jupiter, &Game::satellite, &Game::station, &Game::asteroid,
};
inline constexpr int kBodyCount = static_cast<int>(std::size(kBodies));

// The bodies with mass, in the order the craft feels their pulls: the last bit of its path
// depends on that order.
inline constexpr BodyMember kMassiveBodies[] = {
    &Game::sun, &Game::earth, &Game::moon, &Game::venus, &Game::mars, &Game::jupiter,
};

// The bodies whose touch ends a flight, their own radius counting (the satellite and the station
// are the level's to judge), in the order the attempt's rules look at them.
inline constexpr BodyMember kHardBodies[] = {
    &Game::earth,   &Game::moon, &Game::venus,    &Game::mars,
    &Game::jupiter, &Game::sun,  &Game::asteroid,
};

// Which of the world's bodies a body is, by its name (copies share it): its place in kBodies, or
// -1 for none.
inline int bodyIndex(const Game& game, const Stellar& body) {
    for (int i = 0; i < kBodyCount; ++i) {
        if ((game.*kBodies[i]).name == body.name)
            return i;
    }
    return -1;
}

} // namespace apsis
