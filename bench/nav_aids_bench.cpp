#include "control/controller.h"
#include "control/keys.h"
#include "control/seeded_flight.h"
#include "game_frames.h"

#include <benchmark/benchmark.h>
#include <memory>

#include <QImage>
#include <QPainter>

namespace {

using apsis::Controller;

// Level 1 in flight, the same layout every time, the aids on or off, the engine burning or not.
void fly(Controller& c, bool aids, bool burning) {
    apsis::flySeeded(c, 1, 1);
    if (aids)
        c.toggleNavAids();
    // Long enough for the aids to look a whole orbit ahead.
    for (int i = 0; i < 200; ++i)
        c.doFrame();
    if (burning)
        c.keyDown(apsis::kKeyUp);
}

// One flight tick as the window lives it at 1280x800: the controller's step, then the frame
// drawn. Arguments: aids off or on; coasting (the path kept and extended) or burning (the path
// found again at every tick, the dearest case).
void BM_FlightTickWithAids(benchmark::State& state) {
    apsis::bench::useGameResources();
    const bool aids = state.range(0) != 0;
    const bool burning = state.range(1) != 0;
    auto c = std::make_unique<Controller>();
    fly(*c, aids, burning);
    QImage buffer(1280, 800, QImage::Format_RGB32);
    for (auto _ : state) {
        c->doFrame();
        apsis::bench::drawFrame(buffer, *c);
        benchmark::DoNotOptimize(buffer.constBits());
        if (c->mode != apsis::MODE_PLAY) {
            state.PauseTiming();
            c = std::make_unique<Controller>();
            fly(*c, aids, burning);
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_FlightTickWithAids)
    ->ArgNames({"aids", "burning"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({0, 1})
    ->Args({1, 1})
    ->MeasureProcessCPUTime() // Qt may hand large drawings to worker threads
    ->Unit(benchmark::kMillisecond);

} // namespace
