#pragma once

#include <vector>

namespace apsis {

struct DrawView;

// A place in the world given from the followed body's present centre, m.
struct Offset {
    double x = 0.0;
    double y = 0.0;
};

// A point of the path ahead worth naming: where it is, what it says, and in how long it comes.
struct NavMark {
    bool isShown = false;
    Offset at;             // m from the followed body
    double value = 0;      // m, a distance as the display states it
    double time = 0;       // s from now; below 0 when already behind the craft
    const char* name = ""; // the body it concerns, if any
};

// What the navigation aids show over one flight frame. Places are relative to the body the camera
// follows, so an orbit around it closes on itself.
struct NavAids {
    std::vector<Offset> path;   // the craft now, then after each world step ahead, keys let go
    Offset craft;               // the craft now
    bool hasMotion = false;     // the craft moves relative to the followed body, not merely drifts
    Offset motion;              // unit direction of motion relative to the followed body
    bool hasOrbit = false;      // the followed body has mass to orbit
    bool isCircular = false;    // high and low points are the same distance
    bool isEscaping = false;    // no high point: the craft leaves the followed body for good
    NavMark high;               // farthest point of the orbit around the followed body
    NavMark low;                // nearest point of the orbit around the followed body
    const char* orbitBody = ""; // named when the orbit is around another than the followed body
    // The level's zone, drawn as one or two circles around its body.
    bool hasZone = false;
    Offset zoneCentre;
    double zoneInner = 0; // m from the body's centre; 0 for none
    double zoneOuter = 0; // m
    const char* zoneBody = "";
    double zoneSurface = 0; // m subtracted to state the zone as the display states distance
    // The level's target and the closest approach to it along the path ahead.
    bool hasTarget = false;
    Offset target;
    NavMark approach;
    NavMark impact; // where and when the path ahead meets a body
};

// Draws the aids over the flight frame, on the current canvas, after initSizes.
void drawNavAids(const DrawView& view, const NavAids& aids);

} // namespace apsis
