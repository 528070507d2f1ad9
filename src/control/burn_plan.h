#pragma once

#include "control/nav_path.h"
#include "control/nav_worker.h"
#include "world/game.h"

#include <memory>
#include <optional>

namespace apsis {

// A burn planned ahead: when its middle comes, and the velocity change it gives along the motion
// and radial out, relative to the body that turns the craft there.
struct BurnPlan {
    bool isSet = false;
    double time = 0;          // s on the world's clock: the burn's middle
    double along = 0;         // m/s, along the motion (below zero: against it)
    double across = 0;        // m/s, radial out (below zero: in)
    int centre = 0;           // the body the burn is measured from: its place in kBodies
    bool isAtHigh = false;    // set at the high point (the key's next press takes the low one)
    double fuelAtStart = -1;  // m/s in the tank when the burn's start came; below 0 before
    double burned = 0;        // m/s burned since the burn's start
    double askedThrottle = 0; // the throttle its path was found for

    double deltaV() const;
    // s at the present throttle; the burn is centred on time.
    double duration(const Player& craft) const;
    double start(const Player& craft) const { return time - duration(craft) / 2; }
    double end(const Player& craft) const { return time + duration(craft) / 2; }
    // m/s still to burn: the whole until the start, then down to zero.
    double remaining() const;
};

// The planned burn as the path's finder flies it.
PathBurn pathBurnOf(const BurnPlan& plan, const Player& craft);

// The time step a tick may take while a plan waits ahead or burns, s: the player's own, cut so
// that the pilot sees the start coming (a sixtieth of the time left, some two seconds ahead), the
// tick ends at the start, at the end and where the engine has burned the velocity change, and the
// burn takes some sixty ticks.
double planTimeStep(const BurnPlan& plan, const Game& game, double own, double shortest);

// The path of a planned burn, from its start: looked for on a worker thread as the aids' path is
// (or on the caller's, in tests and tools), the burn itself flown there too.
class PlannedPath {
  public:
    void useWorkerThread(bool isUsed) { isThreaded_ = isUsed; }
    void request(const Game& now, int level, const BurnPlan& plan, int goal);
    void clear();
    void settle();
    // Takes what the worker has found; once a tick.
    void update();
    // Once the burn is flown: its places, then the path after it.
    const PathResult* found() const;

  private:
    bool isThreaded_ = false;
    PathWorker worker_;
    std::optional<PathFinder> finder_;
    std::shared_ptr<const PathResult> held_;
};

// The world as it stands at a place of a path: the live world's bodies and craft moved there.
Game worldAt(const Game& live, const PathSample& place);

} // namespace apsis
