#include "control/controller.h"
#include "physics/numeric.h"
#include "world/levels.h"

#include <cmath>

namespace apsis {
namespace {

// The Moon is followed only while the view is narrower than its orbit.
constexpr double kMoonLimit = E(3.8, 8); // m

} // namespace

void Controller::followNearestBody() {
    const Position& ship = game.player.pos;
    // h: two fifths of the height of world the view shows. Only the small bodies that matter in a
    // level are ever followed, and only while the view reaches no further than the level allows.
    const double h = 0.4 * drawView.viewScaleH;
    const Level& row = levelAt(level);

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
    consider(game.satellite, game.satellite.isActive && h < row.followSatellite);
    consider(game.station, game.station.isActive && h < row.followStation);
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
