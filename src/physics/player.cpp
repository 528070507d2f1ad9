#include "physics/player.h"

#include "physics/numeric.h"

#include <cmath>

namespace apsis {
namespace {

constexpr double kTurnStep = 0.0004; // rad of target heading per sub-step, whatever its length

} // namespace

Player::Player(const char* name, double mass, double size, double cRadius, const char* imageName,
               const char* thrustImageName, int spritesWide)
    : Stellar(name, mass, size, cRadius, imageName, spritesWide),
      thrustImg(thrustImageName, spritesWide) {}

Player::Player(const char* name, double mass, double size, double cRadius, const char* imageName,
               int spritesWide)
    : Player(name, mass, size, cRadius, imageName, imageName, spritesWide) {}

void Player::move(double dt) {
    // The craft never spins by itself.
    pos.av = 0.0;

    // Attitude: the target runs ahead of the heading by at most a quarter turn. Turning needs
    // fuel but burns none.
    if (isTurningLeft && kHalfPi > targetAngle - pos.angle) {
        if (fuel > 0)
            targetAngle = targetAngle + kTurnStep;
        else
            isTurningLeft = false;
    }
    if (isTurningRight && kHalfPi > pos.angle - targetAngle) {
        if (fuel > 0)
            targetAngle = targetAngle - kTurnStep;
        else
            isTurningRight = false;
    }

    // Heading: with long sub-steps the craft points at its target at once; otherwise it closes on
    // it by first order, and both angles wrap together so their difference survives the wrap.
    if (dt > kPi) {
        targetAngle = balance(targetAngle);
        pos.angle = targetAngle;
    } else {
        pos.angle = 0.1 * (targetAngle - pos.angle) * dt + pos.angle;
        if (pos.angle > kTwoPi) {
            pos.angle -= kTwoPi;
            targetAngle -= kTwoPi;
        } else if (pos.angle < 0) {
            pos.angle += kTwoPi;
            targetAngle += kTwoPi;
        }
    }

    // Thrust along the new heading. The last burn may overdraw the tank by one step; the next
    // sub-step clears the remainder and stops the engine.
    if (isAccelerating) {
        if (fuel > 0) {
            const double dv = throttle * acceleration * dt;
            pos.vx = pos.vx + std::cos(pos.angle) * dv;
            pos.vy = pos.vy + std::sin(pos.angle) * dv;
            fuel = fuel - dv;
        } else {
            isAccelerating = false;
            fuel = 0.0;
        }
    }

    Stellar::move(dt);
}

Rect Player::getImageRect() {
    Image& sheet = isAccelerating ? thrustImg : img;
    return sheet.getRect(frameForAngle(pos.angle, img.spritesWide));
}

void Player::putInOrbitAround(Stellar& center, double radius, double angle) {
    Stellar::putInOrbitAround(center, radius, angle);
    targetAngle = pos.angle;
}

void Player::putInOrbitAround(Stellar& center, double radius) {
    Stellar::putInOrbitAround(center, radius);
    targetAngle = pos.angle;
}

} // namespace apsis
