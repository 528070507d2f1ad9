#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>

#include <QImage>
#include <QPainter>

namespace {

using apsis::Controller;

// Level 1 in flight, the same layout every time, the aids on or off, the engine burning or not.
void fly(Controller& c, bool aids, bool burning) {
    apsis::randSeedSet = true;
    std::srand(1);
    c.startLevel(1);
    c.keyDown(apsis::kKeySpace);
    c.keyDown(apsis::kKeySpace);
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
    static const bool installed = [] {
        apsis::installResources(std::make_unique<apsis::QtResources>(
            apsis::findResourceFolder(apsis::executableFolder())));
        return true;
    }();
    (void)installed;
    const bool aids = state.range(0) != 0;
    const bool burning = state.range(1) != 0;
    auto c = std::make_unique<Controller>();
    fly(*c, aids, burning);
    QImage buffer(1280, 800, QImage::Format_RGB32);
    for (auto _ : state) {
        c->doFrame();
        buffer.fill(Qt::black);
        QPainter painter(&buffer);
        apsis::QtCanvas canvas(painter);
        apsis::CanvasFocus focus(canvas);
        c->drawRect();
        painter.end();
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
