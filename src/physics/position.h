#pragma once

#include "physics/numeric.h"

namespace apsis {

// The kinematic state of one body in the plane: x to the right, y upwards, angles counter-clockwise
// from +x.
struct Position {
    double x = 0.0;     // m
    double y = 0.0;     // m
    double vx = 0.0;    // m/s
    double vy = 0.0;    // m/s
    double angle = 0.0; // rad, facing; kept in [0, 2*pi] by move
    double av = 0.0;    // rad/s, spin; positive counter-clockwise

    Position() = default; // at the origin, at rest, facing +x
    Position(const Position&) = default;
    Position& operator=(const Position&) = default;
    // A copy of p spinning once in period seconds (negative: clockwise). period must not be 0.
    Position(const Position& p, double period);
    // Built from coordinates, facing up (pi/2) and not spinning.
    Position(double x, double y, double vx, double vy);
    // Facing up and spinning once in period seconds. period must not be 0.
    Position(double x, double y, double vx, double vy, double period);

    // Drift for dt seconds: place by velocity, facing by spin. Velocities are left alone; the pulls
    // and the thrust change them before the drift. Inline, with sqDist: both run thousands of
    // times in every world step.
    void move(double dt) {
        x = x + vx * dt;
        y = y + vy * dt;
        angle = balance(angle + av * dt);
    }
};

// Squared distance between two places, m^2: the hot path takes no square root.
inline double sqDist(const Position& a, const Position& b) {
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return dx * dx + dy * dy;
}

// Size of the difference of two velocities, m/s.
double velDiff(const Position& a, const Position& b);

// The spin of a body that turns once in period seconds. A period of 0 is refused.
double spinOf(double period);

} // namespace apsis
