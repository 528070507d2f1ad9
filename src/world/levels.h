#pragma once

#include "world/game.h"

#include <array>
#include <limits>

namespace apsis {

// Level 0 is practice; 1 to kLevelCount - 1 are the game proper, played in order.
constexpr int kLevelCount = 9;

// What touching a small body does in a level.
enum class Touch {
    Crash,    // the craft is lost
    Dock,     // the goal: gentle and in time completes the level, gentle but late restarts it
    Harmless, // the craft starts beside it
};

// Everything that makes a level what it is, one row per level. The numbers before the
// difficulty scales them.
struct Level {
    // The set-up: places the optional bodies, then the craft, around the freshly placed planets.
    void (*place)(Game& game) = nullptr;
    double acceleration = 0.0; // m/s^2 at full throttle
    double fuel = 0.0;         // m/s, also the full tank
    double throttle = 1.0;     // fraction
    double timeStep = 0.0;     // s per world step
    double timeLimit = 0.0;    // s; 0 means none
    // The world step holds the satellite on the Sun-Earth line instead of pulling it.
    bool satelliteRidesEarth = false;

    // The opening view: the stretch of world across it, and the body it looks at.
    double viewScale = 0.0; // m
    Stellar Game::*opensOn = nullptr;
    // How far the view may reach (two fifths of the height of world it shows) for the camera
    // still to follow the satellite or the station; 0 means never, as the reach is never below 0.
    double followSatellite = 0.0; // m
    double followStation = 0.0;   // m

    // The orbit to hold: the craft's distance from zoneBody's centre strictly between zoneInner
    // and zoneOuter for holdTime seconds. No zoneBody, no orbit to hold; no inner edge by default.
    Stellar Game::*zoneBody = nullptr;
    double zoneInner = -std::numeric_limits<double>::infinity(); // m
    double zoneOuter = 0.0;                                      // m
    double holdTime = 0.0;                                       // s
    // Touching the satellite or the station; the body to dock with is the one whose touch is Dock.
    Touch satelliteTouch = Touch::Crash;
    Touch stationTouch = Touch::Crash;
    // The asteroid must be passed within 250 m first; until then touching the station is harmless.
    bool passAsteroidFirst = false;
};

extern const std::array<Level, kLevelCount> kLevels;

// The row of level n; a number outside the table is taken as the nearest level.
const Level& levelAt(int n);

} // namespace apsis
