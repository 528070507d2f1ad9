#include "control/controller.h"
#include "control/keys.h"
#include "control/seeded_flight.h"
#include "game_frames.h"
#include "host/damage_canvas.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

#include <QImage>

namespace {

using apsis::Controller;

// Level 1 in flight, the same layout every time, the aids on or off, the engine burning or not.
void fly(Controller& c, bool aids, bool burning) {
    c.navPrediction.useWorkerThread(true); // as in the window
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
// drawn, on the game's own thread (the path's worker runs beside it and is not counted).
// Arguments: aids off or on; coasting (the path kept) or burning (the path asked for again five
// times a second, the dearest case).
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
    ->Unit(benchmark::kMillisecond);

// One tick of the practice level as the window lives it: the controller's step, the pass that
// notes what the frame draws, and the paint of only the region that changed, clipped to it as Qt
// clips a widget's paint. Arguments: the view's width and height.
void BM_WindowFlightTick(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    apsis::flySeeded(*c, 0, 0);
    QImage buffer(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                  QImage::Format_RGB32);
    apsis::bench::drawFrame(buffer, *c);
    std::vector<apsis::DamageCanvas::Mark> before;
    for (auto _ : state) {
        c->doFrame();
        apsis::bench::redrawAsTheWindow(buffer, *c, before, false);
        benchmark::DoNotOptimize(buffer.constBits());
    }
}
// Twenty seconds of flight from the same start, so that every run measures the same ticks.
BENCHMARK(BM_WindowFlightTick)
    ->Args({1280, 800})
    ->Args({1920, 1080})
    ->Iterations(600)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
