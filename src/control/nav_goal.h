#pragma once

#include "world/game.h"

namespace apsis {

// A level's goal as the navigation aids show it, read from the rules that judge the attempt.

// The zone a level asks the craft to hold: its distance from the body's centre strictly between
// inner and outer (inner below 0 for none). False in levels without one.
struct LevelZone {
    Stellar Game::*body = nullptr;
    double inner = 0; // m
    double outer = 0; // m
};
bool levelZone(int level, LevelZone& zone);

// The body the craft is to reach next: the satellite, the station, or in level 8 the asteroid
// until it has been passed. Null in levels without one.
Stellar Game::*levelTarget(int level, bool isPartialObjectiveDone);

} // namespace apsis
