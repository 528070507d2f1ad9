#include "control/controller.h"
#include "control/keys.h"
#include "control/seeded_flight.h"

#include <benchmark/benchmark.h>

namespace {

using apsis::Controller;

// One flight tick of the level with the most bodies active, the world running, the engine
// burning and the craft turning: the world step as BM_WorldStep measures it, plus the held keys,
// the choice of the followed body, the camera and the objective rules.
void BM_ControllerTick(benchmark::State& state) {
    Controller c;
    const auto fly = [&c] {
        apsis::flySeeded(c, 8, 8);
        c.keyDown(apsis::kKeyUp);
        c.keyDown(apsis::kKeyLeft);
    };
    fly();
    for (auto _ : state) {
        c.doFrame();
        benchmark::DoNotOptimize(c.drawView.viewCenter);
        // The craft starts at the station; should a long run ever end the attempt, fly again.
        if (c.mode != apsis::MODE_PLAY) {
            state.PauseTiming();
            fly();
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_ControllerTick)->Unit(benchmark::kMillisecond);

} // namespace
