#include "physics/numeric.h"
#include "world/game.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {

using apsis::Game;

constexpr int kLevel = 8;
constexpr int kSubSteps = 500;

// Level 8, the level with the most bodies active, with the same layout in both benchmarks.
void setUpLevel8(Game& game) {
    apsis::seedRandomAngles(8);
    game.setLevel(kLevel);
    game.player.isAccelerating = true;
    game.player.isTurningLeft = true;
}

// One world step in the level with the most bodies active, engine burning and the craft turning.
void BM_WorldStep(benchmark::State& state) {
    Game game;
    setUpLevel8(game);
    for (auto _ : state) {
        game.doFrame(kLevel);
        benchmark::DoNotOptimize(game.player.pos);
    }
}
BENCHMARK(BM_WorldStep)->Unit(benchmark::kMillisecond);

// The floor for the world step: the same 500 sub-steps of the same pulls, drifts and ship update,
// written straight out over plain arrays of doubles with libm and no classes in between. It lands
// on the same bits as Game::doFrame; only the time it takes is of interest here.
struct PlainBody {
    double x, y, vx, vy, angle, av, mass;
};

enum : std::size_t { kSun, kVenus, kEarth, kMoon, kMars, kJupiter, kStation, kAsteroid, kShip };

PlainBody plainOf(const apsis::Stellar& body) {
    return {body.pos.x,     body.pos.y,  body.pos.vx, body.pos.vy,
            body.pos.angle, body.pos.av, body.mass};
}

inline void plainPull(PlainBody& body, const PlainBody& other, double dt) {
    const double dx = body.x - other.x;
    const double dy = body.y - other.y;
    const double dv = apsis::G * other.mass / (dx * dx + dy * dy) * dt;
    const double theta = std::atan2(other.y - body.y, other.x - body.x);
    body.vx = body.vx + std::cos(theta) * dv;
    body.vy = body.vy + std::sin(theta) * dv;
}

inline void plainDrift(PlainBody& body, double dt) {
    body.x = body.x + body.vx * dt;
    body.y = body.y + body.vy * dt;
    double angle = body.angle + body.av * dt;
    while (angle > apsis::kTwoPi)
        angle -= apsis::kTwoPi;
    while (angle < 0.0)
        angle += apsis::kTwoPi;
    body.angle = angle;
}

void BM_PlainLoop(benchmark::State& state) {
    Game game;
    setUpLevel8(game);
    std::array<PlainBody, 9> b{plainOf(game.sun),     plainOf(game.venus),    plainOf(game.earth),
                               plainOf(game.moon),    plainOf(game.mars),     plainOf(game.jupiter),
                               plainOf(game.station), plainOf(game.asteroid), plainOf(game.player)};
    double target = game.player.targetAngle;
    double fuel = game.player.fuel;
    const double burn = game.player.throttle * game.player.acceleration;
    const double timeStep = game.timeStep;

    for (auto _ : state) {
        const double dt = timeStep / kSubSteps;
        for (int step = 0; step < kSubSteps; ++step) {
            plainPull(b[kVenus], b[kSun], dt);
            plainPull(b[kEarth], b[kSun], dt);
            plainPull(b[kMoon], b[kSun], dt);
            plainPull(b[kMoon], b[kEarth], dt);
            plainPull(b[kMars], b[kSun], dt);
            plainPull(b[kJupiter], b[kSun], dt);

            plainPull(b[kStation], b[kSun], dt);
            plainPull(b[kStation], b[kEarth], dt);
            plainPull(b[kStation], b[kMoon], dt);
            plainDrift(b[kStation], dt);
            plainPull(b[kAsteroid], b[kSun], dt);
            plainDrift(b[kAsteroid], dt);

            for (std::size_t puller : {kSun, kEarth, kMoon, kVenus, kMars, kJupiter})
                plainPull(b[kShip], b[puller], dt);

            for (std::size_t body = kSun; body <= kJupiter; ++body)
                plainDrift(b[body], dt);

            PlainBody& ship = b[kShip];
            ship.av = 0.0;
            if (apsis::kHalfPi > target - ship.angle && fuel > 0)
                target = target + 0.0004;
            ship.angle = 0.1 * (target - ship.angle) * dt + ship.angle;
            if (ship.angle > apsis::kTwoPi) {
                ship.angle -= apsis::kTwoPi;
                target -= apsis::kTwoPi;
            } else if (ship.angle < 0.0) {
                ship.angle += apsis::kTwoPi;
                target += apsis::kTwoPi;
            }
            if (fuel > 0) {
                const double dv = burn * dt;
                ship.vx = ship.vx + std::cos(ship.angle) * dv;
                ship.vy = ship.vy + std::sin(ship.angle) * dv;
                fuel = fuel - dv;
            }
            plainDrift(ship, dt);
        }
        benchmark::DoNotOptimize(b);
    }
}
BENCHMARK(BM_PlainLoop)->Unit(benchmark::kMillisecond);

} // namespace
