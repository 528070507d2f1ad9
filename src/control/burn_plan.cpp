#include "control/burn_plan.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace apsis {
namespace {

constexpr int kBurnSteps = 60;       // steps, and ticks, a burn takes
constexpr double kWarningShare = 60; // the time left is cut to this share a tick
constexpr int kStepsPerTick = 30;    // path steps a tick, without the worker

} // namespace

double BurnPlan::deltaV() const {
    return std::hypot(along, across);
}

double BurnPlan::duration(const Player& craft) const {
    return deltaV() / (craft.throttle * craft.acceleration);
}

double BurnPlan::remaining() const {
    return std::max(0.0, deltaV() - burned);
}

PathBurn pathBurnOf(const BurnPlan& plan, const Player& craft) {
    return {plan.centre, plan.along, plan.across, plan.start(craft), plan.duration(craft)};
}

double planTimeStep(const BurnPlan& plan, const Game& game, double own, double shortest) {
    const Player& craft = game.player;
    // The clock's last bits are no reason for a step of its own.
    const double now = game.elapsedTime + 1e-9 * std::max(1.0, std::abs(game.elapsedTime));
    const double start = plan.start(craft);
    const double end = plan.end(craft);
    const double burnStep = std::max(plan.duration(craft) / kBurnSteps, shortest);
    if (plan.fuelAtStart >= 0) {
        // Burning, begun on time or a little early: with the engine on, the tick ends where the
        // velocity change left runs out.
        const double rate = craft.throttle * craft.acceleration;
        const double out = craft.isAccelerating && rate > 0 ? plan.remaining() / rate : own;
        return std::min({own, burnStep, std::max(out, 1e-6)});
    }
    if (now < start) {
        const double left = start - now;
        const double warned = std::max(left / kWarningShare, burnStep);
        return std::min({own, warned, left});
    }
    if (now < end)
        return std::min({own, burnStep, end - now});
    return own;
}

void PlannedPath::request(const Game& now, int level, const BurnPlan& plan, int goal) {
    PathRequest ask{now, level, plan.centre, goal, pathBurnOf(plan, now.player)};
    if (isThreaded_) {
        held_.reset();
        worker_.start(std::move(ask));
    } else {
        finder_.emplace(std::move(ask));
    }
}

void PlannedPath::clear() {
    worker_.stop();
    finder_.reset();
    held_.reset();
}

void PlannedPath::settle() {
    if (isThreaded_)
        worker_.wait();
    else if (finder_)
        while (finder_->advance(1000)) {
        }
    update();
}

void PlannedPath::update() {
    if (isThreaded_) {
        if (auto latest = worker_.latest())
            held_ = std::move(latest);
    } else if (finder_) {
        finder_->advance(kStepsPerTick);
    }
}

const PathResult* PlannedPath::found() const {
    return isThreaded_ ? held_.get() : finder_ ? &finder_->result() : nullptr;
}

Game worldAt(const Game& live, const PathSample& place) {
    Game world = live;
    world.player.pos = place.craft;
    world.player.fuel = place.fuel;
    world.elapsedTime = place.elapsed;
    for (int i = 0; i < kBodyCount; ++i) {
        Position& p = (world.*kBodies[i]).pos;
        p.x = place.bodyX[i];
        p.y = place.bodyY[i];
        p.vx = place.bodyVX[i];
        p.vy = place.bodyVY[i];
    }
    return world;
}

} // namespace apsis
