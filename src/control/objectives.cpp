#include "control/controller.h"
#include "world/bodies.h"
#include "world/levels.h"

#include <cmath>

namespace apsis {
namespace {

constexpr double kDockingSpeed = 0.1;   // m/s; a touch at this speed or faster is a crash
constexpr double kAsteroidPass = 250.0; // m from the asteroid's centre

} // namespace

void Controller::checkObjectives() {
    const Player& ship = game.player;
    const Level& row = levelAt(level);
    const auto distance = [&](const Stellar& body) {
        return std::sqrt(sqDist(ship.pos, body.pos));
    };
    // Only the satellite and the station are touched: both radii count, and a body that takes no
    // part in the level is not there to touch.
    const auto touches = [&](const Stellar& body) {
        return body.isActive && distance(body) < body.cRadius + ship.cRadius;
    };
    const auto isGentle = [&](const Stellar& body) {
        return velDiff(ship.pos, body.pos) < kDockingSpeed;
    };
    // Reaching the limit itself is already late.
    const bool isInTime = game.timeLimit == 0 || game.elapsedTime < game.timeLimit;
    // A docking in time completes the level, a late one sends the craft back to the start.
    const auto dock = [&](const Stellar& body) {
        if (!isGentle(body))
            setMode(MODE_COLLISION_FADE);
        else
            setMode(isInTime ? MODE_LEVEL_COMPLETE : MODE_RESTART_FADE);
    };

    // Every step runs, even after an earlier one has ended the attempt: the last to set the mode
    // decides.

    // 1. Satellite, 2. station: what a touch does is the level's. Before the asteroid pass that
    // some level asks for first, the station is as harmless as in the level that starts beside it.
    const auto touch = [&](const Stellar& body, Touch rule) {
        if (!touches(body) || rule == Touch::Harmless)
            return;
        if (rule == Touch::Crash)
            setMode(MODE_COLLISION_FADE);
        else if (!row.passAsteroidFirst || isPartialObjectiveDone)
            dock(body);
    };
    touch(game.satellite, row.satelliteTouch);
    touch(game.station, row.stationTouch);

    // 3. Bodies. Only the body's own radius counts, and a resting asteroid is as hard as a moving
    // one.
    for (const BodyMember member : kHardBodies) {
        const Stellar& body = game.*member;
        if (distance(body) < body.cRadius) {
            setMode(MODE_COLLISION_FADE);
            break;
        }
    }

    // 4. Countdown. It must fall below zero, not merely reach it; once late it goes on falling
    // and the orbit no longer completes the level.
    if (isCountingDown) {
        countDownTime = countDownTime - game.timeStep;
        if (countDownTime < 0 && isInTime)
            setMode(MODE_LEVEL_COMPLETE);
    }

    // 5. Zone. Each entry starts the count from the full hold time.
    if (row.zoneBody != nullptr) {
        const double d = distance(game.*row.zoneBody);
        if (d > row.zoneInner && d < row.zoneOuter) {
            if (!isCountingDown) {
                countDownTime = row.holdTime;
                isCountingDown = true;
            }
        } else {
            isCountingDown = false;
        }
    }

    // 6. Asteroid pass, the first half of level 8.
    if (!isPartialObjectiveDone && row.passAsteroidFirst && distance(game.asteroid) < kAsteroidPass)
        isPartialObjectiveDone = true;
}

} // namespace apsis
