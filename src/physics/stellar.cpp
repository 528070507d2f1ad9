#include "physics/stellar.h"

#include "physics/numeric.h"

#include <cmath>

namespace apsis {

Stellar::Stellar(const char* name, double mass, double size, double cRadius, const char* imageName,
                 int spritesWide)
    : name(name), mass(mass), size(size), cRadius(cRadius), img(imageName, spritesWide) {}

Stellar::Stellar(const char* name, double mass, double size, double cRadius, const char* imageName,
                 int spritesWide, double period)
    : Stellar(name, mass, size, cRadius, imageName, spritesWide) {
    pos.av = spinOf(period);
}

void Stellar::gravTo(const Stellar& other, double dt) {
    const double a = G * other.mass / sqDist(pos, other.pos);
    const double dv = a * dt;
    const double theta = std::atan2(other.pos.y - pos.y, other.pos.x - pos.x);
    pos.vx = pos.vx + std::cos(theta) * dv;
    pos.vy = pos.vy + std::sin(theta) * dv;
}

void Stellar::move(double dt) {
    pos.move(dt);
}

int frameForAngle(double angle, int spritesWide) {
    const int n = spritesWide < 1 ? 1 : spritesWide; // as the sheet itself counts its frames
    const double fromUp = balance(kHalfPi - angle);  // clockwise from facing up, 0 to 2*pi
    // b / (2*pi) * n * n, left to right, truncated once.
    const auto frame = static_cast<int>(fromUp / kTwoPi * n * n);
    // A full turn that rounds to exactly 2*pi is facing up again.
    return frame >= n * n ? 0 : frame;
}

Rect Stellar::getImageRect() {
    return img.getRect(frameForAngle(pos.angle, img.spritesWide));
}

void Stellar::putInOrbitAround(Stellar& center, double radius, double angle) {
    isActive = true;
    pos.x = center.pos.x;
    pos.y = center.pos.y;
    const double v = std::sqrt(G * center.mass / radius);
    pos.angle = angle;
    pos.x = pos.x + std::cos(angle) * radius;
    pos.y = pos.y + std::sin(angle) * radius;
    const double beta = angle + kHalfPi;
    pos.vx = std::cos(beta) * v + center.pos.vx;
    pos.vy = std::sin(beta) * v + center.pos.vy;
    mainInfluence = &center;
}

void Stellar::putInOrbitAround(Stellar& center, double radius) {
    putInOrbitAround(center, radius, randomAngle());
}

} // namespace apsis
