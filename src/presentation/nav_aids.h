#pragma once

#include <vector>

namespace apsis {

struct DrawView;
struct AssistAids;

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

// The closest approach to the level's target or goal body along the path ahead.
struct NavApproach : NavMark {
    Offset bodyThen;           // where the body will be at that moment, m from the followed body
    double speed = 0;          // m/s, the craft's speed relative to the body at that moment
    bool isBeyondPath = false; // the gap still shrinks at the path's end: the true one lies further
};

// An angle between two bodies as seen from a third, measured the way the bodies go round
// (counter-clockwise): how far `ahead` leads `behind`.
struct NavPhase {
    bool isShown = false;
    Offset centre;    // m from the followed body
    Offset behind;    // m from the followed body
    Offset ahead;     // m from the followed body
    double angle = 0; // rad, 0 to 2 pi
    const char* aheadName = "";
    const char* behindName = "";
    const char* centreName = "";
};

// What the navigation aids show over one flight frame. Places are relative to the body the camera
// follows, so an orbit around it closes on itself.
struct NavAids {
    std::vector<Offset> path; // the craft now, then the path ahead, keys let go
    bool isCutShort = false;  // the path ends before its horizon (not yet found that far, or the
                              // longest look ahead): its end is marked and says so
    double pathTime = 0;      // s from now to the path's end
    Offset craft;             // the craft now
    bool hasMotion = false;   // the craft moves relative to the followed body, not merely drifts
    Offset motion;            // unit direction of motion relative to the followed body
    double nose = 0;          // rad, the way the craft points (as Position::angle)
    double noseSettles = 0;   // rad, where the nose will come to rest (the target heading)
    bool isTurning = false;   // the nose is still on its way to noseSettles
    bool hasOrbit = false;    // the followed body has mass to orbit
    bool isCircular = false;  // high and low points are the same distance
    bool isEscaping = false;  // no high point: the craft leaves the followed body for good
    NavMark high;             // farthest point of the orbit around the followed body
    NavMark low;              // nearest point; its value below 0 means the orbit meets the surface
    const char* orbitBody = ""; // named when the orbit is around another than the followed body
    // The level's zone, drawn as one or two circles around its body.
    bool hasZone = false;
    Offset zoneCentre;
    double zoneInner = 0; // m from the body's centre; 0 for none
    double zoneOuter = 0; // m
    const char* zoneBody = "";
    double zoneSurface = 0; // m subtracted to state the zone as the display states distance
    // The level's target (the body to dock with or pass) or goal body (the one to orbit, when it
    // is not the one the level opens on), where it is now and how far, in the display's measure.
    bool hasTarget = false;
    Offset target;
    const char* targetName = "";
    double targetGap = 0; // m, now
    NavApproach approach;
    NavMark impact; // where and when the path ahead meets a body
    Offset sun;     // the Sun's centre, m from the followed body
    NavPhase phase; // the angle a briefing asks for, where one does
};

// Draws the aids over the flight frame, on the current canvas, after initSizes.
// With the assists' plan given, it is drawn among them, its labels placed with theirs.
void drawNavAids(const DrawView& view, const NavAids& aids, const AssistAids* assists = nullptr);

} // namespace apsis
