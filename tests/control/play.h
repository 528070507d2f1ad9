#pragma once

#include "control/controller.h"
#include "control/keys.h"
#include "control/seeded_flight.h"
#include "physics/numeric.h"
#include "presentation/canvas.h"
#include "support/recording_canvas.h"

// Plays the controller as the host does: ticks, presses and releases, and redraws.
namespace apsis::play {

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

// From a level's briefing into its flight with the world stopped.
inline void toStillFlight(Controller& c, int level, unsigned seed) {
    seedRandomAngles(seed);
    c.startLevel(level);
    press(c, kKeySpace);
}

} // namespace apsis::play
