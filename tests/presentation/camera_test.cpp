#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "support/recording_canvas.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

Stellar body(double x, double y, double vx = 0.0, double vy = 0.0) {
    Stellar s("Earth", 1.0, 1.0, 1.0, "earth.jpg", 8);
    s.pos = Position(x, y, vx, vy);
    return s;
}

void resize(DrawView& view, float width, float height) {
    RecordingCanvas canvas({width, height});
    CanvasFocus focus(canvas);
    view.initSizes();
}

TEST(Camera, MapsTheWorldOntoTheViewKeepingItsWidthAndCirclesRound) {
    DrawView view(1.0e9, body(3.0e8, -2.0e8).pos, body(0, 0));
    resize(view, 800.0f, 600.0f);
    const ViewPoint corner = view.worldToView(3.0e8 - 5.0e8, -2.0e8 - 3.75e8);
    EXPECT_NEAR(corner.x, 0.0, 1e-9);
    EXPECT_NEAR(corner.y, 0.0, 1e-9);
    const ViewPoint up = view.worldToView(3.0e8, -2.0e8 + 1.25e8);
    EXPECT_DOUBLE_EQ(up.x, 400.0);
    EXPECT_DOUBLE_EQ(up.y, 400.0); // as many points high as wide
    // A resized view shows the same width of world; outside a redraw, or on a surface without
    // area, the last sizes stay.
    resize(view, 1600.0f, 600.0f);
    EXPECT_DOUBLE_EQ(view.worldToView(3.0e8 + 1.0e9, 0.0).x - view.worldToView(3.0e8, 0.0).x,
                     1600.0);
    resize(view, 800.0f, 1200.0f);
    EXPECT_EQ(view.viewScaleH, 1.5e9);
    view.initSizes();
    resize(view, 0.0f, 600.0f);
    EXPECT_EQ(view.viewWidth, 800.0);
    EXPECT_EQ(view.viewScaleH, 1.5e9);
}

TEST(Camera, GlidesTwelvePercentOfTheWayAndLeadsAMovingBody) {
    // A body at 30 km/s, 10 s per frame: while the world runs the lag shrinks to 0.88 of itself
    // every frame; stopped, only the glide acts.
    Stellar moving = body(2.0e5, 0.0, 3.0e4, -1.0e4);
    DrawView camera(1.0e9, body(0, 0).pos, moving);
    double gap = 2.0e5;
    const auto lag = [&] {
        return std::hypot(moving.pos.x - camera.viewCenter.x, moving.pos.y - camera.viewCenter.y);
    };
    for (int frame = 1; frame <= 20; ++frame) {
        moving.pos.move(10.0);
        camera.viewTarget = moving;
        camera.moveCamera(10.0, true);
        gap *= 0.88;
        EXPECT_NEAR(lag(), gap, 0.2) << frame;
    }
    const double was = lag();
    camera.moveCamera(10.0, false);
    EXPECT_NEAR(lag(), 0.88 * was, 1e-6);
}

} // namespace
} // namespace apsis
