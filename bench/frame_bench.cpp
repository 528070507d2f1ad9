#include "control/controller.h"
#include "control/seeded_flight.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <benchmark/benchmark.h>
#include <memory>

#include <QImage>
#include <QPainter>

namespace {

using apsis::Controller;

// The game's own pictures and texts, from the resource folder beside the binary.
void useGameResources() {
    static const bool installed = [] {
        apsis::installResources(std::make_unique<apsis::QtResources>(
            apsis::findResourceFolder(apsis::executableFolder())));
        return true;
    }();
    (void)installed;
}

// A level in flight with the same layout every time: briefing dismissed, world running.
void fly(Controller& c, int level, int ticks) {
    apsis::flySeeded(c, level, static_cast<unsigned>(level));
    for (int i = 0; i < ticks; ++i)
        c.doFrame();
}

// One redraw as the window makes it, over and over: fill black, a painter and a canvas over the
// back buffer, the controller's drawing.
void drawFrames(benchmark::State& state, Controller& c, int width, int height) {
    QImage buffer(width, height, QImage::Format_RGB32);
    for (auto _ : state) {
        buffer.fill(Qt::black);
        QPainter painter(&buffer);
        apsis::QtCanvas canvas(painter);
        apsis::CanvasFocus focus(canvas);
        c.drawRect();
        painter.end();
        benchmark::DoNotOptimize(buffer.constBits());
    }
    state.counters["fps"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

// A flight frame of level 1: Earth, the craft, the head-up display, the gauges and the scale.
void BM_FlightFrame(benchmark::State& state) {
    useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 1, 30);
    drawFrames(state, *c, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}
BENCHMARK(BM_FlightFrame)->Args({1280, 800})->Args({3840, 2160})->Unit(benchmark::kMillisecond);

// Level 7 as it starts: 200 m across the view, the station and the craft beside it filling the
// view as pictures hundreds of points wide, and every planet billions of points away.
void BM_DeepZoomFrame(benchmark::State& state) {
    useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 7, 3);
    drawFrames(state, *c, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}
BENCHMARK(BM_DeepZoomFrame)->Args({1280, 800})->Unit(benchmark::kMillisecond);

// Level 7 while the player holds the zoom keys: in for 20 frames, out for 20, so that every frame
// scales the station and the craft to a size not drawn just before.
void BM_ZoomingFrame(benchmark::State& state) {
    useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 7, 3);
    QImage buffer(1280, 800, QImage::Format_RGB32);
    int frame = 0;
    for (auto _ : state) {
        c->drawView.viewScale *= (frame++ % 40 < 20) ? 0.9025 : 1.0 / 0.9025;
        buffer.fill(Qt::black);
        QPainter painter(&buffer);
        apsis::QtCanvas canvas(painter);
        apsis::CanvasFocus focus(canvas);
        c->drawRect();
        painter.end();
        benchmark::DoNotOptimize(buffer.constBits());
    }
}
BENCHMARK(BM_ZoomingFrame)->Unit(benchmark::kMillisecond);

// The set-up screen: menu pictures, the panel and a dozen texts, the level names read each time.
void BM_SetupScreen(benchmark::State& state) {
    useGameResources();
    auto c = std::make_unique<Controller>();
    c->setMode(apsis::MODE_CHOICE);
    c->level = 3;
    c->game.difficulty = 2;
    drawFrames(state, *c, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}
BENCHMARK(BM_SetupScreen)->Args({1280, 800})->Unit(benchmark::kMillisecond);

} // namespace
