#include "control/controller.h"
#include "control/nav_findings.h"
#include "control/nav_path.h"
#include "control/nav_worker.h"
#include "control/seeded_flight.h"
#include "world/levels.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

// What the aids ask for at a level's opening, at its own time factor or one ten times slower.
apsis::PathRequest openingRequest(int level, bool slower) {
    auto c = std::make_unique<apsis::Controller>();
    apsis::flySeeded(*c, level, 1);
    c->doFrame();
    apsis::Game world = c->game;
    if (slower)
        world.timeStep /= 10;
    const apsis::Stellar* target =
        apsis::targetOf(world, apsis::levelAt(level), c->isPartialObjectiveDone);
    return {world, level, apsis::orbitCentreOf(world, c->drawView.viewTarget),
            target != nullptr ? apsis::bodyIndex(world, *target) : -1, std::nullopt};
}

// The path from a level's opening found as far as it reaches, as the worker finds it: the time
// this takes on the worker's thread is the time the pilot waits for the whole path. Counters: the
// world steps taken, the simulated time the path covers and whether it ended at a limit.
void BM_PathToHorizon(benchmark::State& state) {
    const int level = static_cast<int>(state.range(0));
    const bool slower = state.range(1) != 0;
    const apsis::PathRequest request = openingRequest(level, slower);
    std::size_t steps = 0;
    double reach = 0;
    bool isCut = false;
    for (auto _ : state) {
        apsis::PathFinder finder(request);
        while (!finder.result().isFar)
            finder.advance(apsis::PathWorker::kStepsPerStretch, 0); // the world at its start
        const apsis::PathResult& found = finder.result();
        steps = found.fine.size() + found.coarse.size();
        const auto& last = found.coarse.empty() ? found.fine.back() : found.coarse.back();
        reach = last.elapsed - found.fine.front().elapsed;
        isCut = found.isCutShort;
        benchmark::DoNotOptimize(found.fine.data());
    }
    state.counters["steps"] = static_cast<double>(steps);
    state.counters["days"] = reach / 86400;
    state.counters["cut"] = isCut ? 1 : 0; // ended at a limit before its horizon
}
BENCHMARK(BM_PathToHorizon)
    ->ArgNames({"level", "slower"})
    ->ArgsProduct({{1, 2, 3, 4, 5, 6, 7, 8}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace
