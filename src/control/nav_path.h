#pragma once

#include "world/bodies.h"
#include "world/game.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace apsis {

// The world after one step of the path ahead: the craft and where every body is.
struct PathSample {
    Position craft;
    double fuel = 0;
    double targetAngle = 0;
    double elapsed = 0;            // s, the world's clock
    double bodyX[kBodyCount] = {}; // m, the world's bodies in their order
    double bodyY[kBodyCount] = {};
    double bodyVX[kBodyCount] = {}; // m/s
    double bodyVY[kBodyCount] = {};
};

PathSample sampleOf(const Game& game);

// A planned burn, flown before the path is looked for: the hold along it from the outset, the
// engine on from its start for its duration.
struct PathBurn {
    int centre = 0;    // the body the burn is measured from: its place in kBodies
    double along = 0;  // m/s, along the motion
    double across = 0; // m/s, radial out
    double start = 0;  // s on the world's clock
    double duration = 0;
};

// The world flown through a burn to its end. Up to the start the steps are the game's own, or
// longer ones as the path's coarse steps are, and a last one that ends on the start; the burn
// itself is flown in 60 steps of the game's own kind. Places along the burn are added to places.
Game flyBurn(const Game& from, int level, const PathBurn& burn, std::vector<PathSample>& places);

// What a path is looked for from: a world with every key let go, and what decides how far ahead
// the path must reach; for a planned burn's path, the burn flown first.
struct PathRequest {
    Game world;
    int level = 0;
    int centre = 0; // the body whose turns are counted: the followed one, or what pulls hardest
    int goal = -1;  // the body to reach, whose closest approach the path must include; -1 none
    std::optional<PathBurn> burn;
};

// The path found so far. The fine path steps the world exactly as the game will, at its own time
// step; the coarse one steps the same world in longer steps, to see far ahead in little time. Both
// start with the request's world.
struct PathResult {
    std::vector<PathSample> burn; // a planned burn's places, flown before the path
    std::vector<PathSample> fine;
    std::vector<PathSample> coarse; // empty where the game's own step already reaches far enough
    int impactBody = -1;            // the body the path ends in (its place in kBodies), or -1
    bool isFar = false;             // the path reaches as far as it will (the fine one may still
                                    // be filling in behind)
    bool isComplete = false;        // nothing more will be found
    bool isWaiting = false;         // all is found until the world moves on along the fine path
    bool isCutShort = false;        // it ended at a limit, before its horizon
};

// Looks ahead from one request, a given number of world steps at a time, so that the work can be
// spread over ticks or done on a thread of its own. The path reaches two turns round its centre,
// or an impact, and for a goal also its closest approach, unless the craft's orbit keeps it far
// from the goal or the approach lies beyond the level's time limit. Its horizon ends at
// kLongestLook at the latest; a path that reaches kMostCoarseSteps first is cut short.
class PathFinder {
  public:
    static constexpr double kLongestLook = 400 * 86400.0; // s: the horizon's cap in time
    // s: a goal that cannot come near the craft's orbit within a month at the speed it moves to or
    // from the centre now is out of its reach (Mars from a low orbit round Earth); an asteroid
    // falling past is not.
    static constexpr double kApproachLook = 30 * 86400.0;
    static constexpr std::size_t kMostFineSteps = 3000;
    // Enough to look through the time limit for a goal on the craft's own geostationary orbit
    // (level 5).
    static constexpr std::size_t kMostCoarseSteps = 450;
    static constexpr std::size_t kLeadSteps = 30; // fine steps found before the coarse path
    static constexpr std::size_t kFineAhead = 90; // fine steps found ahead of the world: 3 s
    static constexpr std::size_t kEverything = kMostFineSteps; // a place that asks for it all
    // Two turns, so that a path found again half way along (see NavPrediction) always reaches a
    // whole turn ahead, and at the highest time factors is not found again every other tick.
    static constexpr double kTurnsAhead = 2;
    static constexpr double kStepsPerTurn = 60; // coarse steps a turn round the nearest pull
    static constexpr double kReach = 0.125;     // of the distance to a body, a coarse step at most
    static constexpr double kLongestStep = 86400; // s: even far out, the Moon's month in 27 steps
    static constexpr int kCoarseSubSteps = 250;   // sub-steps of a coarse step: 15,000 to a turn

    explicit PathFinder(PathRequest request);

    // Takes up to steps world steps while the world stands at the fine path's place world (the
    // fine path is found only kFineAhead places beyond it); false when there is nothing more to
    // do until the world moves on, or ever.
    bool advance(int steps, std::size_t world = kEverything);
    const PathResult& result() const { return result_; }

    // The coarse step for a world: a whole number of the game's steps, about kStepsPerTurn to a
    // turn at the craft's distance from whichever body would turn it fastest.
    static double coarseStep(const Game& world);

  private:
    enum class Stage { Lead, Far, Fill };

    // Whether the path that ends with samples has reached its horizon, and keeps count on the way.
    struct Horizon {
        double turn = 0;       // rad round the centre so far
        double nearest = -1;   // m, the closest to the goal so far
        bool isPassed = false; // the goal's closest approach lies behind
        bool check(const std::vector<PathSample>& samples, const PathFinder& finder);
    };

    void stepFine();
    void stepCoarse();
    bool hits(const Game& world);
    // Whether the craft at s, on an orbit round the centre with its high point at high, is kept
    // from the goal: its high point lies within half the distance the goal may come to from the
    // centre, moving to or from it as fast as it does now, before kApproachLook or the level's
    // time runs out. Left alone the craft comes no nearer to the goal than it does once a turn,
    // so its turns alone decide how far the path reaches. So it does on an orbit round the goal
    // itself, whose low point comes once a turn.
    bool isGoalOutOfReach(const PathSample& s, double high) const;
    // The high point of the craft's two-body orbit round the centre, from its distance and speed
    // at s; infinite where it escapes.
    double highPoint(const PathSample& s) const;

    PathRequest request_;
    Game fine_;   // the world at the fine path's end
    Game coarse_; // the world at the coarse path's end
    PathResult result_;
    Stage stage_ = Stage::Lead;
    Horizon fineHorizon_;
    Horizon coarseHorizon_;
    bool hasCoarse_ = false;
    double centreMu_ = 0;  // m^3/s^2, the centre's pull
    double goalUntil_ = 0; // s on the world's clock: a goal's approach later than this does not
                           // count
};

} // namespace apsis
