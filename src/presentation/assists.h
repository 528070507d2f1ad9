#pragma once

#include "presentation/nav_aids.h"

#include <vector>

namespace apsis {

// What the pilot's assists show over one flight frame: the hold in force and the planned burn,
// its path drawn from the burn's start in a colour of its own. Places are relative to the body the
// camera follows, as the aids' are.
struct AssistAids {
    const char* hold = nullptr; // the hold's name, or nullptr when none is held
    bool hasPlan = false;
    bool isBurning = false;   // the burn's start is behind, its end ahead
    double remaining = 0;     // m/s still to burn
    double duration = 0;      // s, at the present throttle
    double timeToStart = 0;   // s
    double fuelAfter = 0;     // s of burning at the present throttle left after the burn
    double along = 0;         // m/s of the velocity change along the motion (below zero: against)
    double across = 0;        // m/s radial out (below zero: in)
    std::vector<Offset> burn; // the burn's places
    std::vector<Offset> path; // then the path after it
    bool hasOrbit = false;
    bool isEscaping = false;
    NavMark high;
    NavMark low;
    const char* orbitBody = "";
    NavApproach approach;
    NavMark impact;
};

// Draws the assists' read-outs, held clear of the aids' labels, and the plan; with the aids on,
// together with them, their labels placed as one.
void drawAssists(DrawView& view, const AssistAids& assists, const NavAids* aids);

} // namespace apsis
