#include "control/controller.h"
#include "control/nav_goal.h"

#include <cmath>
#include <limits>

namespace apsis {
namespace {

constexpr double kDockingSpeed = 0.1;   // m/s; a touch at this speed or faster is a crash
constexpr double kAsteroidPass = 250.0; // m from the asteroid's centre

// The orbit to hold in levels 1, 2, 3 and 7: the craft's distance from the body's centre lies
// strictly between inner and outer for holdTime seconds of simulated time.
struct Zone {
    int level;
    Stellar Game::*body;
    double inner;    // m
    double outer;    // m
    double holdTime; // s
};

constexpr double kNoInnerEdge = -std::numeric_limits<double>::infinity();

constexpr Zone kZones[] = {
    {1, &Game::earth, kNoInnerEdge, 9378000.0, 21600.0}, // low orbit, 6 hours
    {2, &Game::earth, 36380000.0, 46380000.0, 345600.0}, // geostationary band, 4 days
    {3, &Game::moon, kNoInnerEdge, 3740000.0, 86400.0},  // around the Moon, 1 day
    {7, &Game::mars, kNoInnerEdge, 3930000.0, 86400.0},  // around Mars, 1 day
};

const Zone* zoneOf(int level) {
    for (const Zone& zone : kZones) {
        if (zone.level == level)
            return &zone;
    }
    return nullptr;
}

} // namespace

void Controller::checkObjectives() {
    const Player& ship = game.player;
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

    // 1. Satellite.
    if (touches(game.satellite)) {
        if (level == 4 || level == 5)
            dock(game.satellite);
        else
            setMode(MODE_COLLISION_FADE);
    }

    // 2. Station. In level 7 the craft starts beside it; in level 8 it is the goal only once the
    // asteroid has been passed, and then with no time limit.
    if (touches(game.station)) {
        if (level == 7) {
            // harmless
        } else if (level == 8) {
            if (isPartialObjectiveDone)
                setMode(isGentle(game.station) ? MODE_LEVEL_COMPLETE : MODE_COLLISION_FADE);
        } else if (level == 6) {
            dock(game.station);
        } else {
            setMode(MODE_COLLISION_FADE);
        }
    }

    // 3. Bodies. Only the body's own radius counts, and a resting asteroid is as hard as a moving
    // one.
    for (const Stellar* body : {&game.earth, &game.moon, &game.venus, &game.mars, &game.jupiter,
                                &game.sun, &game.asteroid}) {
        if (distance(*body) < body->cRadius) {
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
    if (const Zone* zone = zoneOf(level)) {
        const double d = distance(game.*zone->body);
        if (d > zone->inner && d < zone->outer) {
            if (!isCountingDown) {
                countDownTime = zone->holdTime;
                isCountingDown = true;
            }
        } else {
            isCountingDown = false;
        }
    }

    // 6. Asteroid pass, the first half of level 8.
    if (!isPartialObjectiveDone && level == 8 && distance(game.asteroid) < kAsteroidPass)
        isPartialObjectiveDone = true;
}

} // namespace apsis

namespace apsis {

bool levelZone(int level, LevelZone& zone) {
    const Zone* found = zoneOf(level);
    if (found == nullptr)
        return false;
    zone.body = found->body;
    zone.inner = found->inner;
    zone.outer = found->outer;
    return true;
}

Stellar Game::*levelTarget(int level, bool isPartialObjectiveDone) {
    switch (level) {
    case 4:
    case 5:
        return &Game::satellite;
    case 6:
        return &Game::station;
    case 8:
        return isPartialObjectiveDone ? &Game::station : &Game::asteroid;
    default:
        return nullptr;
    }
}

} // namespace apsis
