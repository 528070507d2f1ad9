#pragma once

#include "control/nav_path.h"
#include "control/nav_worker.h"
#include "presentation/nav_aids.h"
#include "world/game.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace apsis {

// The path the craft will fly if every key is let go now, found with the world's own step on a
// copy of the world, so that the craft left alone flies exactly through it. The world is
// deterministic: while it goes the way the path foresaw, the path is kept; after a key, a change of
// time step or of the followed body it is looked for again. In the game the looking is done on a
// worker thread; elsewhere (tests, tools) a few world steps a tick on the caller's, which finds
// the same path more slowly.
class NavPrediction {
  public:
    static constexpr int kStepsPerTick = 3; // world steps a tick, without the worker
    static constexpr int kRefreshTicks = 6; // while a key is held, the path is looked for again
                                            // this often: five times a second

    void useWorkerThread(bool isUsed) { isThreaded_ = isUsed; }
    // Once per flight tick, after the world step and the camera. ownStep: where a plan ahead has
    // cut the time step, which then changes at every tick without the player asking, the
    // player's own (s); 0 where it is not cut.
    void update(const Game& game, int level, bool isPartialObjectiveDone, const Stellar& followed,
                double ownStep = 0);
    // Drops the path and stops the worker.
    void clear();
    // Waits until the path is complete (tests and tools).
    void settle();
    // What the aids show of the world as it is now.
    NavAids aids(const Game& game, int level, bool isPartialObjectiveDone,
                 const Stellar& followed) const;

    // The path from the world as it is now: the fine places, then the coarse ones beyond them.
    std::vector<const PathSample*> path() const;
    // Everything found for the latest request, or nullptr.
    const PathResult* found() const;
    bool isLookingAhead() const { return worker_.isRunning(); } // the worker thread is up
    int requests() const { return requests_; } // how often the path was looked for afresh

  private:
    void request(const Game& game, int level, int centre, int goal, double ownStep);
    // Takes what the worker has found for the latest request, if anything.
    void takeLatest();

    bool isThreaded_ = false;
    PathWorker worker_;
    std::optional<PathFinder> finder_;       // without the worker
    std::shared_ptr<const PathResult> held_; // from the worker, as taken at the last tick
    bool isCurrent_ = false;                 // held_ is for the latest request
    std::size_t start_ = 0;                  // the fine place the world stands at
    int level_ = -1;
    double timeStep_ = 0;
    int centre_ = -1;
    int goal_ = -1;
    int ticksSinceRequest_ = 0;
    int requests_ = 0;
    bool wasHeld_ = false; // a key steered the craft at the last tick
};

} // namespace apsis
