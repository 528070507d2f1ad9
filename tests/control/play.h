#pragma once

#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "presentation/canvas.h"
#include "support/recording_canvas.h"

#include <cstdlib>

// Plays the controller as the host does: ticks, presses and releases, and redraws.
namespace apsis::play {

// Makes the random layouts of the levels the same at every run.
inline void seed(unsigned seed) {
    randSeedSet = true;
    std::srand(seed);
}

inline void ticks(Controller& c, int n) {
    for (int i = 0; i < n; ++i)
        c.doFrame();
}

// One tick as the host sees it: whether it asked for a redraw, which the host then clears.
inline bool tickAsksRedraw(Controller& c) {
    c.doFrame();
    const bool asked = c.needsRedraw;
    c.needsRedraw = false;
    return asked;
}

inline void press(Controller& c, unsigned short key) {
    c.keyDown(key);
    c.keyUp(key);
}

// A redraw on the canvas, which the camera takes its view's shape from.
inline void redraw(Controller& c, RecordingCanvas& canvas) {
    canvas.clear();
    CanvasFocus focus(canvas);
    c.drawRect();
}

// From a level's briefing into its flight, the world stopped or, with running, started.
inline void toFlight(Controller& c, int level, bool running = false) {
    c.startLevel(level);
    press(c, kKeySpace);
    if (running)
        press(c, kKeySpace);
}

} // namespace apsis::play
