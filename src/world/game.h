#pragma once

#include "physics/player.h"
#include "physics/stellar.h"
#include "world/hold.h"

namespace apsis {

// The whole simulated world: nine bodies, the craft, the clock and the level's limits. Built once;
// each level set-up spreads the bodies out, and doFrame advances them.
struct Game {
    bool running = false;     // the world advances only while set
    double timeStep = 600.0;  // s of simulated time per world step (one tick of 1/30 s)
    double elapsedTime = 0.0; // s of simulated time since the level began
    double timeLimit = 0.0;   // s; 0 means no limit
    int difficulty = 1;       // 1 Easy, 2 Medium, 3 Hard
    Stellar sun;
    Stellar venus;
    Stellar earth;
    Stellar moon;
    Stellar mars;
    Stellar jupiter;
    Stellar satellite;
    Stellar station;
    Stellar asteroid;
    Player player;
    AttitudeHold hold; // off unless the pilot asks: then it steers the craft in every sub-step

    // Every body at the origin, at rest, active; no level set up yet. A world is a plain value: a
    // copy steps on its own, exactly as the original would. (The bodies' mainInfluence of a copy
    // still point into the original; only drawing reads them.)
    Game();

    // One world step of timeStep seconds in 500 sub-steps. level is the level being played; where
    // its row says so (level 4) the satellite is held at a fixed fraction of Earth's state instead
    // of being pulled.
    void doFrame(int level);
    // The same step in fewer, longer sub-steps: for looking far ahead, where a path need not be
    // exact to the last bit.
    void doFrame(int level, int subSteps);
    // Puts the world into the starting state of a level (world/levels.h) at the present
    // difficulty. A number outside the table is taken as the nearest level.
    void setLevel(int n);
};

} // namespace apsis
