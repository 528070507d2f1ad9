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
    EXPECT_EQ(view.viewScaleH, 7.5e8);
    const ViewPoint corner = view.worldToView(3.0e8 - 5.0e8, -2.0e8 - 3.75e8);
    EXPECT_NEAR(corner.x, 0.0, 1e-9);
    EXPECT_NEAR(corner.y, 0.0, 1e-9);
    for (const double scale : {1.0, 3.0e12}) {
        view.viewScale = scale;
        resize(view, 800.0f, 600.0f);
        const ViewPoint middle = view.worldToView(3.0e8, -2.0e8);
        EXPECT_DOUBLE_EQ(middle.x, 400.0) << scale;
        EXPECT_DOUBLE_EQ(middle.y, 300.0) << scale;
        const ViewPoint up = view.worldToView(3.0e8, -2.0e8 + scale / 8);
        EXPECT_DOUBLE_EQ(up.y - middle.y, 100.0) << scale; // as many points high as wide
    }
    // A resized view shows the same width of world; outside a redraw, or on a surface without
    // area, the last sizes stay.
    view.viewScale = 1.0e9;
    resize(view, 1600.0f, 600.0f);
    EXPECT_DOUBLE_EQ(view.worldToView(3.0e8 + 1.0e9, 0.0).x - view.worldToView(3.0e8, 0.0).x,
                     1600.0);
    EXPECT_EQ(view.viewScaleH, 3.75e8);
    resize(view, 800.0f, 1200.0f);
    EXPECT_EQ(view.viewScaleH, 1.5e9);
    view.initSizes();
    resize(view, 0.0f, 600.0f);
    EXPECT_EQ(view.viewWidth, 800.0);
    EXPECT_EQ(view.viewScaleH, 1.5e9);
}

TEST(Camera, GlidesTwelvePercentOfTheWayAndLeadsAMovingBody) {
    // 100 km away along a diagonal, at rest: the glide alone.
    const double d = 1.0e5 / std::sqrt(2.0);
    const Stellar still = body(1.0e11 + d, 5.0e10 + d);
    DrawView view(1.0e9, body(1.0e11, 5.0e10).pos, still);
    for (const double remaining : {88000.0, 77440.0}) {
        view.moveCamera(600.0, true);
        const double dx = still.pos.x - view.viewCenter.x;
        const double dy = still.pos.y - view.viewCenter.y;
        EXPECT_NEAR(std::hypot(dx, dy), remaining, 1e-4);
        EXPECT_NEAR(dx, dy, 1e-4); // still on the diagonal
    }

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
