#pragma once

#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "presentation/canvas.h"
#include "support/recording_canvas.h"

#include <cstdlib>

namespace apsis::play {

// Plays the controller as the host does: ticks, presses and releases, and the sizing that starts
// every redraw.

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

// The start of a redraw on a view of the given size: the camera learns the view's shape, from
// which the followed-body rule takes its reach. A square view whose side is a power of two makes
// viewScaleH exactly viewScale.
inline void redraw(Controller& c, float width = 512.0f, float height = 512.0f) {
    RecordingCanvas canvas({width, height});
    CanvasFocus focus(canvas);
    c.drawView.initSizes();
}

// From a level's briefing into its flight, the world still stopped.
inline void toFlight(Controller& c, int level) {
    c.startLevel(level);
    press(c, kKeySpace);
}

// Into flight with the world running.
inline void toRunningFlight(Controller& c, int level) {
    toFlight(c, level);
    press(c, kKeySpace);
}

} // namespace apsis::play
