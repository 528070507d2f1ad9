#pragma once

#include "physics/stellar.h"

namespace apsis {

// The craft the player flies: a body with an engine, a tank of velocity change and an attitude
// control. Its move, getImageRect and putInOrbitAround hide the body's own; nothing is virtual, so
// the world calls them through the Player type.
struct Player : Stellar {
    double acceleration = 1.0;   // m/s^2 at full throttle
    double throttle = 0.5;       // fraction of acceleration in use, 0.001 to 1
    double fuel = 86400.0;       // m/s of velocity change left; a burn takes what it gives
    double maxFuel = 86400.0;    // m/s, the level's full tank
    double targetAngle = 0.0;    // rad, the heading the craft turns towards
    bool isTurningLeft = false;  // turn-left input held
    bool isTurningRight = false; // turn-right input held
    bool isAccelerating = false; // thrust input held
    Image thrustImg;             // the sheet while the engine burns

    Player(const char* name, double mass, double size, double cRadius, const char* imageName,
           const char* thrustImageName, int spritesWide);
    // Both sheets from the same picture.
    Player(const char* name, double mass, double size, double cRadius, const char* imageName,
           int spritesWide);

    // One sub-step of dt seconds: turn, burn, drift. Gravity comes before, from the world.
    void move(double dt);
    // As the body's, but from the thrust sheet while the engine burns.
    Rect getImageRect();
    // Placed as a body, and the target heading set to the new heading so the craft does not turn.
    void putInOrbitAround(Stellar& center, double radius, double angle);
    void putInOrbitAround(Stellar& center, double radius);
};

} // namespace apsis
