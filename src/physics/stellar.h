#pragma once

#include "assets/image.h"
#include "physics/position.h"

namespace apsis {

// One body of the world: the Sun, a planet, a moon, a satellite, a station, an asteroid, or (as a
// Player) the craft. Copies share the name, the picture and the body they orbit.
struct Stellar {
    const char* name;                 // shown on screen, "Earth"; not owned
    double mass;                      // kg; 0 for bodies that pull nothing
    double size;                      // m, the drawn diameter
    double cRadius;                   // m, collision radius
    Position pos;                     // place, velocity, facing and spin
    Image img;                        // sprite sheet, loaded on first use
    Stellar* mainInfluence = nullptr; // the body it was last put in orbit around; not owned
    bool isActive = true;             // takes part in the current level

    // At the origin, at rest, facing +x, not spinning.
    Stellar(const char* name, double mass, double size, double cRadius, const char* imageName,
            int spritesWide);
    // The same, turning once in period seconds (negative: clockwise). period must not be 0.
    Stellar(const char* name, double mass, double size, double cRadius, const char* imageName,
            int spritesWide, double period);

    // This body is pulled towards other for dt seconds; other does not change.
    void gravTo(const Stellar& other, double dt);
    // Drift for dt seconds.
    void move(double dt);
    // Where in the sprite sheet the frame for the body's present facing lies.
    Rect getImageRect();
    // Puts the body on a circular counter-clockwise orbit around center, radius m out at angle
    // rad, facing outwards and sharing the centre's own motion. radius must be positive.
    void putInOrbitAround(Stellar& center, double radius, double angle);
    // The same at a random angle.
    void putInOrbitAround(Stellar& center, double radius);
};

// The frame of an n x n sheet that shows a body facing angle: frame 0 faces up, and frames advance
// clockwise in equal steps. Facing exactly up again after a full turn wraps back to frame 0.
int frameForAngle(double angle, int spritesWide);

} // namespace apsis
