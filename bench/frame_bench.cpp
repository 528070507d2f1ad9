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
    apsis::bench::drawPicturesDecoded(buffer, c);
    for (auto _ : state) {
        apsis::bench::drawFrame(buffer, c);
        benchmark::DoNotOptimize(buffer.constBits());
    }
    state.counters["fps"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

// A flight frame of level 1: Earth, the craft, the head-up display, the gauges and the scale.
void BM_FlightFrame(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 1, 30);
    drawFrames(state, *c, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}
BENCHMARK(BM_FlightFrame)
    ->Args({1280, 800})
    ->Args({3840, 2160})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

// Level 3 as it opens: Earth, 25,000 km away, fills most of the view, drawn from its largest
// frames about as large as they are.
void BM_OpeningFrame(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 3, 3);
    drawFrames(state, *c, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}
BENCHMARK(BM_OpeningFrame)
    ->Args({1280, 800})
    ->Args({1920, 1080})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

// Level 7 as it starts: 200 m across the view, the station and the craft beside it filling the
// view as pictures hundreds of points wide, and every planet billions of points away.
void BM_DeepZoomFrame(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 7, 3);
    drawFrames(state, *c, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}
BENCHMARK(BM_DeepZoomFrame)
    ->Args({1280, 800})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

// The practice level after zoom in is held for two seconds: the view is 255 km across and a
// planet's picture fills it, each of its pixels some three hundred points wide.
void BM_MagnifiedPlanetFrame(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 0, 60);
    c->keyDown(apsis::kKeyW);
    for (int i = 0; i < 60; ++i)
        c->doFrame();
    c->keyUp(apsis::kKeyW);
    drawFrames(state, *c, 1280, 800);
}
BENCHMARK(BM_MagnifiedPlanetFrame)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

// A tick of level 1 as the window lives it after zoom in is held for two and a half seconds, when
// Earth fills the view: the controller's step, the pass that notes what the frame draws, and the
// paint of only the region that changed. Earth's picture, drawn again sampled alike, is not.
void BM_MagnifiedPlanetTick(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 1, 60);
    c->keyDown(apsis::kKeyW);
    for (int i = 0; i < 75; ++i)
        c->doFrame();
    c->keyUp(apsis::kKeyW);
    QImage buffer(1280, 800, QImage::Format_RGB32);
    apsis::bench::drawPicturesDecoded(buffer, *c);
    std::vector<apsis::DamageCanvas::Mark> before;
    apsis::bench::redrawAsTheWindow(buffer, *c, before, true);
    for (auto _ : state) {
        c->doFrame();
        apsis::bench::redrawAsTheWindow(buffer, *c, before, false);
        benchmark::DoNotOptimize(buffer.constBits());
    }
}
BENCHMARK(BM_MagnifiedPlanetTick)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

// Level 7 while the player holds the zoom keys: in for 20 frames, out for 20, so that every frame
// scales the station and the craft to a size not drawn just before.
void BM_ZoomingFrame(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    fly(*c, 7, 3);
    QImage buffer(1280, 800, QImage::Format_RGB32);
    apsis::bench::drawPicturesDecoded(buffer, *c);
    int frame = 0;
    for (auto _ : state) {
        c->drawView.viewScale *= (frame++ % 40 < 20) ? 0.9025 : 1.0 / 0.9025;
        apsis::bench::drawFrame(buffer, *c);
        benchmark::DoNotOptimize(buffer.constBits());
    }
}
BENCHMARK(BM_ZoomingFrame)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

// A key on a still screen, redrawn as the window redraws it: a pass that notes what the frame
// draws, then the whole view painted, black first. The screens read their pictures and texts at
// every draw, in both passes.
void redrawAfterKeys(benchmark::State& state, Controller& c, unsigned short key) {
    QImage buffer(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                  QImage::Format_RGB32);
    std::vector<apsis::DamageCanvas::Mark> before;
    apsis::bench::drawPicturesDecoded(buffer, c);
    for (auto _ : state) {
        c.keyDown(key);
        c.keyUp(key);
        apsis::bench::redrawAsTheWindow(buffer, c, before, true);
        benchmark::DoNotOptimize(buffer.constBits());
    }
}

// The menu, its highlight moving down the entries: the menu picture and a band over it.
void BM_MenuRedraw(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    c->setMode(apsis::MODE_MENU);
    redrawAfterKeys(state, *c, apsis::kKeyDown);
}
BENCHMARK(BM_MenuRedraw)->Args({1280, 800})->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

// The set-up screen, the level changing: menu pictures, the panel, a dozen texts and the level
// names.
void BM_SetupRedraw(benchmark::State& state) {
    apsis::bench::useGameResources();
    auto c = std::make_unique<Controller>();
    c->setMode(apsis::MODE_CHOICE);
    c->game.difficulty = 2;
    redrawAfterKeys(state, *c, apsis::kKeyRight);
}
BENCHMARK(BM_SetupRedraw)
    ->Args({1280, 800})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

} // namespace
