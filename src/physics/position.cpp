#include "physics/position.h"

#include "physics/numeric.h"

#include <cassert>
#include <cmath>

namespace apsis {

double spinOf(double period) {
    // A body that turns in no time would spin infinitely fast; no body of the game does.
    assert(period != 0.0 && "a rotation period of 0 is refused");
    return kTwoPi / period;
}

Position::Position(const Position& p, double period)
    : x(p.x), y(p.y), vx(p.vx), vy(p.vy), angle(p.angle), av(spinOf(period)) {}

Position::Position(double x, double y, double vx, double vy)
    : x(x), y(y), vx(vx), vy(vy), angle(kHalfPi), av(0.0) {}

Position::Position(double x, double y, double vx, double vy, double period)
    : x(x), y(y), vx(vx), vy(vy), angle(kHalfPi), av(spinOf(period)) {}

double velDiff(const Position& a, const Position& b) {
    const double dvx = a.vx - b.vx;
    const double dvy = a.vy - b.vy;
    return std::sqrt(dvx * dvx + dvy * dvy);
}

} // namespace apsis
