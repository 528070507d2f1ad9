#include "control/nav_findings.h"

#include "physics/numeric.h"
#include "world/bodies.h"

#include <cmath>

namespace apsis {
namespace {

// High and low points of the orbit around the followed body, from its mass and the craft's place
// and velocity relative to it: the two-body orbit through the craft's present state.
void findOrbit(NavAids& aids, const Game& game, const Stellar& body) {
    const double mu = G * body.mass;
    const double rx = game.player.pos.x - body.pos.x;
    const double ry = game.player.pos.y - body.pos.y;
    const double vx = game.player.pos.vx - body.pos.vx;
    const double vy = game.player.pos.vy - body.pos.vy;
    const double r = std::hypot(rx, ry);
    if (!(mu > 0) || !(r > 0))
        return;
    aids.hasOrbit = true;
    const double v2 = vx * vx + vy * vy;
    const double rv = rx * vx + ry * vy;
    const double h = rx * vy - ry * vx; // positive counter-clockwise
    // The eccentricity vector points from the body to the low point.
    const double ex = ((v2 - mu / r) * rx - rv * vx) / mu;
    const double ey = ((v2 - mu / r) * ry - rv * vy) / mu;
    const double e = std::hypot(ex, ey);
    const double p = h * h / mu; // semi-latus rectum, m
    const double surface = body.cRadius + game.player.cRadius;
    const double low = p / (1 + e);
    aids.isEscaping = e >= 1;
    aids.isCircular = e < 1e-6;
    const double ux = aids.isCircular ? rx / r : ex / e;
    const double uy = aids.isCircular ? ry / r : ey / e;
    aids.low.isShown = true;
    aids.low.at = {ux * low, uy * low};
    aids.low.value = low - surface;
    aids.low.time = -1;
    aids.high.time = -1;
    if (!aids.isEscaping) {
        const double high = p / (1 - e);
        aids.high.isShown = true;
        aids.high.at = {-ux * high, -uy * high};
        aids.high.value = high - surface;
    }
    if (aids.isCircular)
        return;
    // Where on the orbit the craft is, measured from the low point the way it flies.
    const double nu = std::atan2(ux * ry - uy * rx, ux * rx + uy * ry) * (h < 0 ? -1 : 1);
    const double a = p / (1 - e * e);
    if (!aids.isEscaping) {
        const double n = std::sqrt(mu / (a * a * a));
        const double ecc = 2 * std::atan(std::sqrt((1 - e) / (1 + e)) * std::tan(nu / 2));
        const double mean = ecc - e * std::sin(ecc); // -pi to pi, 0 at the low point
        aids.low.time = (mean <= 0 ? -mean : kTwoPi - mean) / n;
        aids.high.time = (kPi - mean) / n;
    } else if (nu < 0 && e - 1 < 1e-6) {
        // Still falling towards the low point of a path just fast enough to escape: a parabola.
        const double d = std::tan(nu / 2);
        aids.low.time = -0.5 * std::sqrt(p * p * p / mu) * (d + d * d * d / 3);
    } else if (nu < 0) {
        // Still falling towards the low point of an escape path.
        const double reach = -a;
        const double n = std::sqrt(mu / (reach * reach * reach));
        const double f = 2 * std::atanh(std::sqrt((e - 1) / (e + 1)) * std::tan(nu / 2));
        aids.low.time = -(e * std::sinh(f) - f) / n;
    } else {
        // Past the low point of an escape path and climbing away: no low point lies ahead.
        aids.low.isShown = false;
    }
}

} // namespace

// The craft's way relative to the followed body.
void findMotion(NavAids& aids, const Game& game, const Stellar& followed) {
    const Position& craft = game.player.pos;
    aids.craft = {craft.x - followed.pos.x, craft.y - followed.pos.y};
    const double vx = craft.vx - followed.pos.vx;
    const double vy = craft.vy - followed.pos.vy;
    const double speed = std::hypot(vx, vy);
    // Below a tenth of a millimetre a second there is no way worth pointing at: a craft docked
    // at a station shares its motion but for rounding.
    aids.hasMotion = speed > 1e-4;
    if (aids.hasMotion)
        aids.motion = {vx / speed, vy / speed};
    aids.nose = craft.angle;
    aids.noseSettles = game.player.targetAngle;
    // A thousandth of a radian is well under a pixel of the nose line.
    aids.isTurning = std::abs(game.player.targetAngle - craft.angle) > 1e-3;
    aids.sun = {game.sun.pos.x - followed.pos.x, game.sun.pos.y - followed.pos.y};
}

int orbitCentreOf(const Game& game, const Stellar& followed) {
    const int index = bodyIndex(game, followed);
    if (index >= 0 && followed.mass > 0)
        return index;
    int centre = index >= 0 ? index : 0;
    double strongest = 0;
    for (const BodyMember member : kMassiveBodies) {
        const Stellar& body = game.*member;
        const double pull = body.mass / sqDist(game.player.pos, body.pos);
        if (pull > strongest) {
            strongest = pull;
            centre = bodyIndex(game, body);
        }
    }
    return centre;
}

void findOrbitAround(NavAids& aids, const Game& game, const Stellar& followed) {
    const Stellar* centre = &followed;
    if (!(followed.mass > 0))
        centre = &(game.*kBodies[orbitCentreOf(game, followed)]);
    findOrbit(aids, game, *centre);
    if (centre != &followed) {
        aids.orbitBody = centre->name;
        for (NavMark* mark : {&aids.high, &aids.low}) {
            mark->at.x += centre->pos.x - followed.pos.x;
            mark->at.y += centre->pos.y - followed.pos.y;
        }
    }
}

// The orbit the level asks the craft to hold.
void findZone(NavAids& aids, const Game& game, const Level& row, const Stellar& followed) {
    if (row.zoneBody == nullptr)
        return;
    const Stellar& body = game.*row.zoneBody;
    aids.hasZone = true;
    aids.zoneCentre = {body.pos.x - followed.pos.x, body.pos.y - followed.pos.y};
    aids.zoneInner = row.zoneInner > 0 ? row.zoneInner : 0;
    aids.zoneOuter = row.zoneOuter;
    aids.zoneBody = body.name;
    aids.zoneSurface = body.cRadius + game.player.cRadius;
}

// The body to reach next: the one to dock with, in level 8 the asteroid until it has been passed;
// in a level without one, the body of the orbit to hold when the level opens on another. None
// where the level has none or it takes no part.
const Stellar* targetOf(const Game& game, const Level& row, bool isPartialObjectiveDone) {
    BodyMember target = row.satelliteTouch == Touch::Dock ? &Game::satellite
                        : row.stationTouch == Touch::Dock ? &Game::station
                                                          : nullptr;
    if (row.passAsteroidFirst && !isPartialObjectiveDone)
        target = &Game::asteroid;
    if (target == nullptr && row.zoneBody != row.opensOn)
        target = row.zoneBody;
    return target != nullptr && (game.*target).isActive ? &(game.*target) : nullptr;
}

// The angle a level's briefing asks the pilot to wait for: the satellite ahead of the craft round
// Earth (level 5), the Moon ahead of the craft round Earth (level 6), Mars ahead of Earth round
// the Sun (level 7).
void findPhase(NavAids& aids, const Game& game, int level, const Stellar& followed) {
    struct Phase {
        int level;
        BodyMember centre, behind, ahead; // behind: nullptr for the craft
    };
    static constexpr Phase kPhases[] = {
        {5, &Game::earth, nullptr, &Game::satellite},
        {6, &Game::earth, nullptr, &Game::moon},
        {7, &Game::sun, &Game::earth, &Game::mars},
    };
    for (const Phase& p : kPhases) {
        if (p.level != level)
            continue;
        const Stellar& centre = game.*p.centre;
        const Stellar& behind = p.behind != nullptr ? game.*p.behind : game.player;
        const Stellar& ahead = game.*p.ahead;
        const auto from = [&](const Stellar& body) {
            return Offset{body.pos.x - followed.pos.x, body.pos.y - followed.pos.y};
        };
        const double a = std::atan2(ahead.pos.y - centre.pos.y, ahead.pos.x - centre.pos.x);
        const double b = std::atan2(behind.pos.y - centre.pos.y, behind.pos.x - centre.pos.x);
        NavPhase& phase = aids.phase;
        phase.isShown = true;
        phase.centre = from(centre);
        phase.behind = from(behind);
        phase.ahead = from(ahead);
        phase.angle = std::fmod(a - b + 2 * kTwoPi, kTwoPi);
        phase.aheadName = ahead.name;
        phase.behindName = behind.name;
        phase.centreName = centre.name;
    }
}

} // namespace apsis
