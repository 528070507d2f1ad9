#pragma once

#include "presentation/nav_aids.h"
#include "world/bodies.h"
#include "world/game.h"

#include <cstddef>
#include <deque>

namespace apsis {

// The path the craft will fly if every key is let go now, found with the world's own step on a
// copy of the world, so that the craft left alone flies exactly through it. The world is
// deterministic: while it goes the way the path foresaw, the path is kept and only extended; after
// a key or a change of time step it is built again, a few steps per tick.
class NavPrediction {
  public:
    static constexpr int kStepsPerTick = 3; // world steps of looking ahead per tick, at most
    static constexpr std::size_t kMostSteps = 3000; // the path never looks further ahead

    // The world after one step of the path.
    struct Sample {
        Position craft;
        double fuel = 0;
        double targetAngle = 0;
        double elapsed = 0;            // s, the world's clock
        double bodyX[kBodyCount] = {}; // m, the world's bodies in their order
        double bodyY[kBodyCount] = {};
        double turn = 0; // rad, how far the craft has gone round the followed body since the first
    };

    // Once per flight tick, after the world step and the camera.
    void update(const Game& game, int level, const Stellar& followed);
    void clear();
    // What the aids show of the world as it is now.
    NavAids aids(const Game& game, int level, bool isPartialObjectiveDone,
                 const Stellar& followed) const;

    const std::deque<Sample>& samples() const { return samples_; }

  private:
    void rebuild(const Game& game, int level);
    // The path found for this world, or none for another (a redraw before the first tick of a new
    // attempt).
    const std::deque<Sample>& samplesFor(const Game& game, int level) const;
    void extend();
    void turnAround(int reference);
    bool isHorizonReached() const;

    Game world_; // the copy, as it stands at the last sample
    std::deque<Sample> samples_;
    int level_ = -1;
    double timeStep_ = 0;
    int reference_ = 0;   // the followed body, as an index into the world's bodies
    int impactBody_ = -1; // the body the path ends in, or -1
};

} // namespace apsis
