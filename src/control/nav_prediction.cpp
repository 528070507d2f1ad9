#include "control/nav_prediction.h"

#include "control/nav_findings.h"
#include "world/levels.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace apsis {
namespace {

// The followed body's place among the world's bodies; the Sun for a body the world does not hold.
int referenceOf(const Game& game, const Stellar& followed) {
    const int index = bodyIndex(game, followed);
    return index >= 0 ? index : 0;
}

// The world then and now are the same to the last bit, as far as the path can tell.
bool isSame(const PathSample& s, const Game& game) {
    const Position& p = game.player.pos;
    if (s.craft.x != p.x || s.craft.y != p.y || s.craft.vx != p.vx || s.craft.vy != p.vy ||
        s.craft.angle != p.angle || s.craft.av != p.av || s.fuel != game.player.fuel ||
        s.targetAngle != game.player.targetAngle || s.elapsed != game.elapsedTime)
        return false;
    for (int i = 0; i < kBodyCount; ++i) {
        if (s.bodyX[i] != (game.*kBodies[i]).pos.x || s.bodyY[i] != (game.*kBodies[i]).pos.y)
            return false;
    }
    return true;
}

Offset offsetOf(const PathSample& s, int reference) {
    return {s.craft.x - s.bodyX[reference], s.craft.y - s.bodyY[reference]};
}

int goalOf(const Game& game, int level, bool isPartialObjectiveDone) {
    const Stellar* target = targetOf(game, levelAt(level), isPartialObjectiveDone);
    return target != nullptr ? bodyIndex(game, *target) : -1;
}

} // namespace

void NavPrediction::clear() {
    worker_.stop();
    finder_.reset();
    held_.reset();
    isCurrent_ = false;
    start_ = 0;
    level_ = -1;
    centre_ = -1;
    goal_ = -1;
}

void NavPrediction::request(const Game& game, int level, int centre, int goal, double ownStep) {
    PathRequest ask{game, level, centre, goal, std::nullopt};
    // Every key let go, and the time step the player's own, which it is again after the plan.
    ask.world.player.isTurningLeft = false;
    ask.world.player.isTurningRight = false;
    ask.world.player.isAccelerating = false;
    if (ownStep > 0)
        ask.world.timeStep = ownStep;
    level_ = level;
    timeStep_ = ask.world.timeStep;
    centre_ = centre;
    goal_ = goal;
    ticksSinceRequest_ = 0;
    ++requests_;
    if (isThreaded_) {
        // The last path stays on screen until the first stretch of the new one comes.
        isCurrent_ = false;
        worker_.start(std::move(ask));
    } else {
        finder_.emplace(std::move(ask));
        isCurrent_ = true;
        start_ = 0;
    }
}

void NavPrediction::takeLatest() {
    if (auto latest = worker_.latest()) {
        if (!isCurrent_)
            start_ = 0;
        held_ = std::move(latest);
        isCurrent_ = true;
    }
}

const PathResult* NavPrediction::found() const {
    return isThreaded_ ? held_.get() : finder_ ? &finder_->result() : nullptr;
}

void NavPrediction::update(const Game& game, int level, bool isPartialObjectiveDone,
                           const Stellar& followed, double ownStep) {
    const bool isStepCut = ownStep > 0;
    ++ticksSinceRequest_;
    if (isThreaded_)
        takeLatest();
    else if (finder_)
        finder_->advance(kStepsPerTick, start_);
    const int centre = orbitCentreOf(game, followed);
    const int goal = goalOf(game, level, isPartialObjectiveDone);
    // A step cut short by a plan ahead shrinks at every tick: the path is found at the player's
    // own step, which the world takes again after the plan, and followed by the clock meanwhile.
    const bool isAsked = level == level_ && (isStepCut ? ownStep : game.timeStep) == timeStep_ &&
                         centre == centre_ && goal == goal_;
    // The world takes at most one step a tick: it stands at the place it stood at the last tick,
    // or a later one no further on than the ticks since the path was asked for, or the path no
    // longer holds. Until those places are found it cannot tell.
    bool isLost = !isAsked;
    bool isBehind = false;
    const PathResult* path = found();
    if (isAsked && isCurrent_ && path != nullptr) {
        const std::size_t reach =
            std::max(start_ + 1, static_cast<std::size_t>(ticksSinceRequest_));
        bool follows = false;
        for (std::size_t k = start_; k < path->fine.size() && !follows; ++k) {
            if (!isStepCut && k > reach)
                break;
            // In steps of another length the world goes the path's way only nearly: it stands at
            // the last place it has reached by the clock, while the fine path reaches that far.
            if (isStepCut ? path->fine[k].elapsed > game.elapsedTime && k > 0
                          : isSame(path->fine[k], game)) {
                start_ = isStepCut ? k - 1 : k;
                follows = true;
            }
        }
        isLost = !follows && (path->fine.size() > reach || path->isComplete ||
                              path->fine.back().elapsed < game.elapsedTime);
        // Half way along, the path is looked for again from here, so that it always reaches a
        // whole turn ahead.
        if (follows && path->isFar) {
            const double begun = path->fine.front().elapsed;
            const double end = std::max(path->fine.back().elapsed,
                                        path->coarse.empty() ? begun : path->coarse.back().elapsed);
            isBehind = game.elapsedTime - begun > 0.5 * (end - begun);
        }
    }
    // While a key is held the path is looked for again a few times a second, not at every tick;
    // as soon as it is let go, at once.
    if (isThreaded_ && isCurrent_)
        worker_.follow(start_);
    const Player& craft = game.player;
    const bool isHeld = craft.isTurningLeft || craft.isTurningRight || craft.isAccelerating;
    const bool isLetGo = wasHeld_ && !isHeld;
    wasHeld_ = isHeld;
    const bool isChanging = isHeld || isStepCut;
    if (isLetGo || isBehind ||
        (isLost && (!isAsked || !isChanging || ticksSinceRequest_ >= kRefreshTicks)))
        request(game, level, centre, goal, ownStep);
}

void NavPrediction::settle() {
    if (isThreaded_) {
        worker_.wait();
        takeLatest();
    } else if (finder_) {
        while (finder_->advance(1000, start_)) {
        }
    }
}

std::vector<const PathSample*> NavPrediction::path() const {
    std::vector<const PathSample*> places;
    const PathResult* found = this->found();
    if (found == nullptr)
        return places;
    for (std::size_t k = start_; k < found->fine.size(); ++k)
        places.push_back(&found->fine[k]);
    const double end =
        places.empty() ? -std::numeric_limits<double>::infinity() : places.back()->elapsed;
    for (const PathSample& s : found->coarse) {
        if (s.elapsed > end)
            places.push_back(&s);
    }
    return places;
}

NavAids NavPrediction::aids(const Game& game, int level, bool isPartialObjectiveDone,
                            const Stellar& followed) const {
    NavAids aids;
    const int reference = referenceOf(game, followed);
    // A path found for another level (a redraw before the first tick of a new attempt) shows
    // nothing.
    const std::vector<const PathSample*> places =
        level == level_ ? path() : std::vector<const PathSample*>{};
    aids.path.reserve(places.size());
    for (const PathSample* s : places)
        aids.path.push_back(offsetOf(*s, reference));
    findMotion(aids, game, followed);
    findOrbitAround(aids, game, followed);
    const Level& row = levelAt(level);
    findZone(aids, game, row, followed);
    if (const Stellar* target = targetOf(game, row, isPartialObjectiveDone))
        findApproach(aids, game, *target, followed, places, reference);
    findPhase(aids, game, level, followed);
    const PathResult* found = this->found();
    if (places.empty() || found == nullptr)
        return aids;
    const PathSample& end = *places.back();
    aids.pathTime = end.elapsed - game.elapsedTime;
    if (found->impactBody >= 0) {
        aids.impact.isShown = true;
        aids.impact.at = offsetOf(end, reference);
        aids.impact.time = aids.pathTime;
        aids.impact.name = (game.*kBodies[found->impactBody]).name;
        aids.approach.isBeyondPath = false;
    } else {
        aids.isCutShort = !found->isFar || found->isCutShort;
    }
    return aids;
}

} // namespace apsis
