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

Game flyPlan(const Game& now, int level, const BurnPlan& plan,
             std::vector<PathSample>* burnPlaces) {
    Game world = now;
    Player& craft = world.player;
    craft.isTurningLeft = craft.isTurningRight = craft.isAccelerating = false;
    world.hold.kind = HoldKind::AlongPlan;
    world.hold.reference = plan.centre;
    world.hold.along = plan.along;
    world.hold.across = plan.across;
    const double own = now.timeStep;
    const double start = plan.start(craft);
    const double duration = plan.duration(craft);
    // Up to the start: the game's own steps, or longer ones as the path's coarse steps are, and a
    // last one that ends on the start.
    while (world.elapsedTime < start) {
        const double left = start - world.elapsedTime;
        const double step = std::max(own, PathFinder::coarseStep(world));
        if (step >= left) {
            world.timeStep = left;
            world.doFrame(level);
            world.elapsedTime = start;
        } else {
            world.timeStep = step;
            if (step > own)
                world.doFrame(level, PathFinder::kCoarseSubSteps);
            else
                world.doFrame(level);
        }
    }
    if (burnPlaces != nullptr)
        burnPlaces->push_back(sampleOf(world));
    if (duration > 0) {
        craft.isAccelerating = true;
        world.timeStep = duration / kBurnSteps;
        for (int i = 0; i < kBurnSteps; ++i) {
            world.doFrame(level);
            if (burnPlaces != nullptr)
                burnPlaces->push_back(sampleOf(world));
        }
        craft.isAccelerating = false;
    }
    world.timeStep = own;
    return world;
}

double planTimeStep(const BurnPlan& plan, const Game& game, double own, double shortest) {
    const Player& craft = game.player;
    // The clock's last bits are no reason for a step of its own.
    const double now = game.elapsedTime + 1e-9 * std::max(1.0, std::abs(game.elapsedTime));
    const double start = plan.start(craft);
    const double end = plan.end(craft);
    const double burnStep = std::max(plan.duration(craft) / kBurnSteps, shortest);
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
    burn_.clear();
    after_.emplace(flyPlan(now, level, plan, &burn_));
    PathRequest ask{*after_, level, plan.centre, goal};
    ask.world.hold.kind = HoldKind::Off;
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
    burn_.clear();
    after_.reset();
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

} // namespace apsis
