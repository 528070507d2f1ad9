#include "control/nav_path.h"

#include "physics/numeric.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace apsis {
namespace {

double angleAround(const PathSample& s, int centre) {
    return std::atan2(s.craft.y - s.bodyY[centre], s.craft.x - s.bodyX[centre]);
}

} // namespace

PathSample sampleOf(const Game& game) {
    PathSample s;
    s.craft = game.player.pos;
    s.fuel = game.player.fuel;
    s.targetAngle = game.player.targetAngle;
    s.elapsed = game.elapsedTime;
    for (int i = 0; i < kBodyCount; ++i) {
        const Position& p = (game.*kBodies[i]).pos;
        s.bodyX[i] = p.x;
        s.bodyY[i] = p.y;
        s.bodyVX[i] = p.vx;
        s.bodyVY[i] = p.vy;
    }
    return s;
}

Game flyBurn(const Game& from, int level, const PathBurn& burn, std::vector<PathSample>& places) {
    constexpr int kBurnSteps = 60;
    Game world = from;
    Player& craft = world.player;
    craft.isTurningLeft = craft.isTurningRight = craft.isAccelerating = false;
    world.hold = {HoldKind::AlongPlan, burn.centre, -1, burn.along, burn.across};
    const double own = from.timeStep;
    while (world.elapsedTime < burn.start) {
        const double left = burn.start - world.elapsedTime;
        world.timeStep = own;
        const double step = std::max(own, PathFinder::coarseStep(world));
        if (step >= left) {
            world.timeStep = left;
            world.doFrame(level);
            world.elapsedTime = burn.start;
        } else {
            world.timeStep = step;
            if (step > own)
                world.doFrame(level, PathFinder::kCoarseSubSteps);
            else
                world.doFrame(level);
        }
    }
    places.push_back(sampleOf(world));
    if (burn.duration > 0) {
        craft.isAccelerating = true;
        world.timeStep = burn.duration / kBurnSteps;
        for (int i = 0; i < kBurnSteps; ++i) {
            world.doFrame(level);
            places.push_back(sampleOf(world));
        }
        craft.isAccelerating = false;
    }
    world.timeStep = own;
    world.hold.kind = HoldKind::Off;
    return world;
}

PathFinder::PathFinder(PathRequest request)
    : request_(std::move(request)), fine_(request_.world), coarse_(request_.world) {
    if (request_.burn) {
        // On whichever thread looks for the path: the burn may lie far ahead.
        fine_ = flyBurn(request_.world, request_.level, *request_.burn, result_.burn);
        coarse_ = fine_;
        request_.world = fine_;
    }
    result_.fine.push_back(sampleOf(fine_));
    centreMu_ = G * (request_.world.*kBodies[request_.centre]).mass;
    // Beyond the level's time limit no approach counts.
    const Game& world = request_.world;
    goalUntil_ =
        world.elapsedTime +
        (world.timeLimit > 0 ? std::max(0.0, world.timeLimit - world.elapsedTime) : kLongestLook);
    hasCoarse_ = coarseStep(request_.world) > request_.world.timeStep;
    if (hasCoarse_)
        result_.coarse.push_back(result_.fine.front());
}

double PathFinder::coarseStep(const Game& world) {
    double wanted = kLongestStep; // s
    for (const BodyMember member : kMassiveBodies) {
        const Stellar& body = world.*member;
        const double r = std::sqrt(sqDist(world.player.pos, body.pos));
        const double turn = kTwoPi * std::sqrt(r * r * r / (G * body.mass));
        // On an eccentric orbit the craft falls fast towards its low point: no step carries it
        // further than an eighth of its distance from a body, so that no chord of the path cuts
        // across the body or past the low point.
        const double reach = kReach * r / velDiff(world.player.pos, body.pos);
        wanted = std::min({wanted, turn / kStepsPerTurn, reach});
    }
    const double own = world.timeStep;
    return own * std::max(1.0, std::floor(wanted / own));
}

bool PathFinder::Horizon::check(const std::vector<PathSample>& samples, const PathFinder& finder) {
    const int centre = finder.request_.centre;
    const int goal = finder.request_.goal;
    const PathSample& last = samples.back();
    if (samples.size() >= 2)
        turn += std::remainder(angleAround(last, centre) - angleAround(samples.end()[-2], centre),
                               kTwoPi);
    if (goal >= 0) {
        const double d =
            std::hypot(last.craft.x - last.bodyX[goal], last.craft.y - last.bodyY[goal]);
        if (nearest < 0 || d < nearest) {
            nearest = d;
            isPassed = false;
        } else if (d > 1.5 * nearest) {
            isPassed = true;
        }
    }
    const bool isTurned = std::abs(turn) >= kTurnsAhead * kTwoPi;
    if (goal < 0)
        return isTurned;
    const double high = finder.highPoint(last);
    const bool isGoalDone =
        isPassed || last.elapsed >= finder.goalUntil_ || finder.isGoalOutOfReach(last, high);
    // A craft escaping its centre never turns round it: once past its goal it is far enough.
    return (isTurned || (isPassed && std::isinf(high))) && isGoalDone;
}

double PathFinder::highPoint(const PathSample& s) const {
    const int centre = request_.centre;
    const double mu = centreMu_;
    const double rx = s.craft.x - s.bodyX[centre], ry = s.craft.y - s.bodyY[centre];
    const double vx = s.craft.vx - s.bodyVX[centre], vy = s.craft.vy - s.bodyVY[centre];
    const double energy = 0.5 * (vx * vx + vy * vy) - mu / std::hypot(rx, ry); // per kg
    if (!(energy < 0))
        return std::numeric_limits<double>::infinity();
    const double h = rx * vy - ry * vx;
    const double e = std::sqrt(std::max(0.0, 1 + 2 * energy * h * h / (mu * mu)));
    return -mu / (2 * energy) * (1 + e);
}

bool PathFinder::isGoalOutOfReach(const PathSample& s, double high) const {
    const int centre = request_.centre;
    if (std::isinf(high))
        return false;
    if (request_.goal == centre)
        return true;
    // How near the goal may come to the centre, moving to or from it as fast as it does now: a
    // body that has just passed is still near, and is followed until it is well past.
    const int g = request_.goal;
    const double gx = s.bodyX[g] - s.bodyX[centre], gy = s.bodyY[g] - s.bodyY[centre];
    const double d = std::hypot(gx, gy);
    const double radial =
        (gx * (s.bodyVX[g] - s.bodyVX[centre]) + gy * (s.bodyVY[g] - s.bodyVY[centre])) / d;
    const double look = std::min(kApproachLook, std::max(0.0, goalUntil_ - s.elapsed));
    return high < 0.5 * (d - std::abs(radial) * look);
}

bool PathFinder::hits(const Game& world) {
    for (const BodyMember member : kHardBodies) {
        const Stellar& body = world.*member;
        if (std::sqrt(sqDist(world.player.pos, body.pos)) < body.cRadius) {
            result_.impactBody = bodyIndex(world, body);
            return true;
        }
    }
    return false;
}

void PathFinder::stepFine() {
    fine_.doFrame(request_.level);
    result_.fine.push_back(sampleOf(fine_));
    if (hits(fine_)) {
        // The path the game will fly ends here, whatever the coarse one foresaw.
        result_.coarse.clear();
        result_.isCutShort = false;
        result_.isFar = true;
        result_.isComplete = true;
    }
}

void PathFinder::stepCoarse() {
    // Each coarse step is measured afresh from the game's own step, not from the last coarse one:
    // towards a low point it shortens again.
    coarse_.timeStep = request_.world.timeStep;
    coarse_.timeStep = coarseStep(coarse_);
    coarse_.doFrame(request_.level, kCoarseSubSteps);
    result_.coarse.push_back(sampleOf(coarse_));
}

bool PathFinder::advance(int steps, std::size_t world) {
    const double start = result_.fine.front().elapsed;
    // The fine path is only worth finding a little ahead of the place the world stands at.
    const auto isFineAhead = [&] { return result_.fine.size() > world + kFineAhead; };
    result_.isWaiting = false;
    for (int i = 0; i < steps && !result_.isComplete && !result_.isWaiting; ++i) {
        switch (stage_) {
        case Stage::Lead: {
            // The first stretch at the game's own step, so that the tick can follow the path at
            // once; without a coarse path, the whole of it.
            stepFine();
            if (result_.isComplete)
                break;
            const bool isFar = fineHorizon_.check(result_.fine, *this);
            if (!hasCoarse_) {
                // The longest look is the horizon's own end; a count of steps cuts it short.
                const bool isLongest = result_.fine.back().elapsed - start >= kLongestLook;
                const bool isLimit = result_.fine.size() > kMostFineSteps;
                result_.isComplete = result_.isFar = isFar || isLongest || isLimit;
                result_.isCutShort = !isFar && !isLongest && isLimit;
            } else if (isFar) {
                result_.coarse.clear();
                result_.isComplete = result_.isFar = true;
            } else if (result_.fine.size() > kLeadSteps) {
                stage_ = Stage::Far;
            }
            break;
        }
        case Stage::Far: {
            // The fine path keeps growing meanwhile, one step in each call, so that the world
            // never outruns it.
            if (i == 0 && !isFineAhead()) {
                stepFine();
                if (result_.isComplete)
                    break;
            }
            stepCoarse();
            const bool isImpact = hits(coarse_);
            const bool isFar = coarseHorizon_.check(result_.coarse, *this);
            const bool isLongest = result_.coarse.back().elapsed - start >= kLongestLook;
            const bool isLimit = result_.coarse.size() > kMostCoarseSteps;
            if (isImpact || isFar || isLongest || isLimit) {
                result_.isCutShort = !isImpact && !isFar && !isLongest;
                result_.isFar = true;
                stage_ = Stage::Fill;
            }
            break;
        }
        case Stage::Fill:
            // The fine path replaces the coarse one as far as it is found, and waits for the
            // world to move on once it is far enough ahead of it.
            if (result_.fine.back().elapsed >= result_.coarse.back().elapsed ||
                result_.fine.size() > kMostFineSteps)
                result_.isComplete = true;
            else if (isFineAhead())
                result_.isWaiting = true;
            else
                stepFine();
            break;
        }
    }
    return !result_.isComplete && !result_.isWaiting;
}

} // namespace apsis
