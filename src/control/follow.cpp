#include "control/controller.h"
#include "physics/numeric.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace apsis {
namespace {

// How far the view may reach (h, two fifths of the height of world it shows) for the camera still
// to pick a small body. Only bodies that matter in a level are ever followed; a limit of 0 means
// never, since h is never below 0.
struct FollowLimits {
    double satellite; // m
    double station;   // m
};

// Indexed by level.
constexpr std::array<FollowLimits, 9> kFollowLimits{{
    {42164000.0, 42164000.0}, // 0: the practice station on its geostationary orbit
    {0.0, 0.0},               // 1
    {0.0, 0.0},               // 2
    {0.0, 0.0},               // 3
    {1488331500.0, 0.0},      // 4: the satellite between Earth and the Sun
    {42164000.0, 0.0},        // 5
    {0.0, 3000000.0},         // 6: the station around the Moon
    {0.0, 7378000.0},         // 7
    {0.0, 42164000.0},        // 8
}};

// The Moon is followed only while the view is narrower than its orbit.
constexpr double kMoonLimit = E(3.8, 8); // m

} // namespace

void Controller::followNearestBody() {
    const Position& ship = game.player.pos;
    const double h = 0.4 * drawView.viewScaleH;
    const FollowLimits& limits = kFollowLimits[static_cast<std::size_t>(std::clamp(level, 0, 8))];

    // Each candidate in turn replaces the body chosen so far if it is strictly closer to the
    // craft; on a tie the earlier one stays.
    const Stellar* chosen = &game.sun;
    const auto consider = [&](const Stellar& body, bool allowed) {
        if (allowed && sqDist(ship, chosen->pos) > sqDist(ship, body.pos))
            chosen = &body;
    };
    consider(game.venus, true);
    consider(game.earth, true);
    consider(game.moon, h < kMoonLimit);
    consider(game.satellite, game.satellite.isActive && h < limits.satellite);
    consider(game.station, game.station.isActive && h < limits.station);
    consider(game.mars, true);
    consider(game.jupiter, true);
    // The asteroid counts even in the levels it takes no part in, lying still where it was last.
    consider(game.asteroid, true);

    // Near the Sun the camera stays on the Sun: anything else would be a speck beside it.
    if (std::sqrt(sqDist(ship, game.sun.pos)) < h)
        chosen = &game.sun;

    drawView.viewTarget = *chosen;
}

} // namespace apsis
