#include "physics/numeric.h"
#include "world/game.h"

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

using apsis::Game;

// One world step in the level with the most bodies active, engine burning and the craft turning.
void BM_WorldStep(benchmark::State& state) {
    apsis::randSeedSet = true;
    std::srand(8);
    Game game;
    game.setLevel(8);
    game.player.isAccelerating = true;
    game.player.isTurningLeft = true;
    for (auto _ : state) {
        game.doFrame(8);
        benchmark::DoNotOptimize(game.player.pos);
    }
}
BENCHMARK(BM_WorldStep)->Unit(benchmark::kMillisecond);

} // namespace
