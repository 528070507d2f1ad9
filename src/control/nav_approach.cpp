#include "control/nav_findings.h"
#include "physics/numeric.h"
#include "world/bodies.h"

#include <cmath>

namespace apsis {

namespace {

// A stretch of the path between two places, as a cubic in the fraction u of its time that matches
// both ends' places and velocities: exact enough for a few minutes of coasting, and for a few
// hours far from any body.
struct Stretch {
    const PathSample& a;
    const PathSample& b;
    double dt; // s

    // The place of body (or, for -1, the craft) less the place of from, u of the way along.
    Offset place(int body, int from, double u) const {
        const double h00 = (2 * u - 3) * u * u + 1, h10 = ((u - 2) * u + 1) * u;
        const double h01 = (3 - 2 * u) * u * u, h11 = (u - 1) * u * u;
        const auto x = [&](const PathSample& s) {
            return Offset{(body < 0 ? s.craft.x : s.bodyX[body]) - s.bodyX[from],
                          (body < 0 ? s.craft.y : s.bodyY[body]) - s.bodyY[from]};
        };
        const auto v = [&](const PathSample& s) {
            return Offset{(body < 0 ? s.craft.vx : s.bodyVX[body]) - s.bodyVX[from],
                          (body < 0 ? s.craft.vy : s.bodyVY[body]) - s.bodyVY[from]};
        };
        const Offset xa = x(a), xb = x(b), va = v(a), vb = v(b);
        return {h00 * xa.x + h10 * dt * va.x + h01 * xb.x + h11 * dt * vb.x,
                h00 * xa.y + h10 * dt * va.y + h01 * xb.y + h11 * dt * vb.y};
    }
    // The craft's velocity relative to body, u of the way along.
    double speed(int body, double u) const {
        const double d00 = 6 * u * u - 6 * u, d10 = (3 * u - 4) * u + 1;
        const double d01 = 6 * u - 6 * u * u, d11 = (3 * u - 2) * u;
        const double xa = a.craft.x - a.bodyX[body], ya = a.craft.y - a.bodyY[body];
        const double xb = b.craft.x - b.bodyX[body], yb = b.craft.y - b.bodyY[body];
        const double vxa = a.craft.vx - a.bodyVX[body], vya = a.craft.vy - a.bodyVY[body];
        const double vxb = b.craft.vx - b.bodyVX[body], vyb = b.craft.vy - b.bodyVY[body];
        return std::hypot((d00 * xa + d01 * xb) / dt + d10 * vxa + d11 * vxb,
                          (d00 * ya + d01 * yb) / dt + d10 * vya + d11 * vyb);
    }
};

double distanceAt(const Stretch& s, int body, double u) {
    const Offset p = s.place(-1, body, u);
    return std::hypot(p.x, p.y);
}

// The fraction of a stretch where the craft is closest to body, by golden sections.
double closestOn(const Stretch& s, int body) {
    constexpr double kGolden = 0.6180339887498949;
    double lo = 0, hi = 1;
    for (int i = 0; i < 60 && hi - lo > 1e-12; ++i) {
        const double u1 = hi - kGolden * (hi - lo), u2 = lo + kGolden * (hi - lo);
        if (distanceAt(s, body, u1) <= distanceAt(s, body, u2))
            hi = u2;
        else
            lo = u1;
    }
    return (lo + hi) / 2;
}

} // namespace

void findApproach(NavAids& aids, const Game& game, const Stellar& target, const Stellar& followed,
                  const std::vector<const PathSample*>& path, int reference) {
    aids.hasTarget = true;
    aids.target = {target.pos.x - followed.pos.x, target.pos.y - followed.pos.y};
    aids.targetName = target.name;
    const double radii = target.cRadius + game.player.cRadius;
    aids.targetGap = std::sqrt(sqDist(game.player.pos, target.pos)) - radii;
    const int t = bodyIndex(game, target);
    if (path.empty() || t < 0)
        return;
    // The closest place of the path, then the closest moment on the stretches either side of it.
    std::size_t nearest = 0;
    double closest = -1;
    for (std::size_t k = 0; k < path.size(); ++k) {
        const double d =
            std::hypot(path[k]->craft.x - path[k]->bodyX[t], path[k]->craft.y - path[k]->bodyY[t]);
        if (closest < 0 || d < closest) {
            closest = d;
            nearest = k;
        }
    }
    const PathSample* a = path[nearest];
    const PathSample* b = path[nearest];
    double u = 0;
    for (const std::size_t k : {nearest, nearest + 1}) {
        if (k == 0 || k >= path.size())
            continue;
        const Stretch s{*path[k - 1], *path[k], path[k]->elapsed - path[k - 1]->elapsed};
        if (!(s.dt > 0))
            continue;
        const double v = closestOn(s, t);
        if (const double d = distanceAt(s, t, v); d < closest) {
            closest = d;
            a = path[k - 1];
            b = path[k];
            u = v;
        }
    }
    const Stretch s{*a, *b, b->elapsed - a->elapsed};
    NavApproach& approach = aids.approach;
    approach.isShown = true;
    approach.name = target.name;
    approach.value = closest - radii;
    approach.time = a->elapsed + u * s.dt - game.elapsedTime;
    approach.at = s.dt > 0
                      ? s.place(-1, reference, u)
                      : Offset{a->craft.x - a->bodyX[reference], a->craft.y - a->bodyY[reference]};
    approach.bodyThen =
        s.dt > 0 ? s.place(t, reference, u)
                 : Offset{a->bodyX[t] - a->bodyX[reference], a->bodyY[t] - a->bodyY[reference]};
    approach.speed = s.dt > 0 ? s.speed(t, u)
                              : std::hypot(a->craft.vx - a->bodyVX[t], a->craft.vy - a->bodyVY[t]);
    // Still closing in at the path's end: the true closest approach lies further on. So it does
    // while the path is no more than the craft now, not yet found further.
    approach.isBeyondPath = (a == path.back() && u == 0) || (b == path.back() && u > 1 - 1e-6);
}

} // namespace apsis
