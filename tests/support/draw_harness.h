#pragma once

#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "support/fake_resources.h"
#include "support/recording_canvas.h"
#include "world/game.h"

namespace apsis {

// What a drawing test needs: in-memory resources, a recording canvas made current, a world at
// rest and a camera on Earth, sized to the canvas.
struct DrawHarness {
    ScopedFakeResources files;
    RecordingCanvas canvas;
    CanvasFocus focus{canvas};
    Game game;
    DrawView view{1e9, game.earth.pos, game.earth};

    explicit DrawHarness(Size surface = {640.0f, 480.0f}) : canvas(surface) { view.initSizes(); }
};

} // namespace apsis
