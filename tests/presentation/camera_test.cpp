#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "support/recording_canvas.h"

#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

Stellar body(double x, double y, double vx, double vy) {
    Stellar s("Earth", 1.0, 1.0, 1.0, "earth.jpg", 8);
    s.pos = Position(x, y, vx, vy);
    return s;
}

void resize(DrawView& view, float width, float height) {
    RecordingCanvas canvas({width, height});
    CanvasFocus focus(canvas);
    view.initSizes();
}

TEST(Camera, MapsTheWorldStripOntoTheView) {
    const Stellar earth = body(3.0e8, -2.0e8, 0.0, 0.0);
    DrawView view(1.0e9, earth.pos, earth);
    EXPECT_EQ(view.zoomRect, 0.0);
    resize(view, 800.0f, 600.0f);
    EXPECT_EQ(view.viewScaleH, 7.5e8);

    const ViewPoint right = view.worldToView(3.0e8 + 5.0e8, -2.0e8);
    EXPECT_DOUBLE_EQ(right.x, 800.0);
    EXPECT_DOUBLE_EQ(right.y, 300.0);
    const ViewPoint corner = view.worldToView(3.0e8 - 5.0e8, -2.0e8 - 3.75e8);
    EXPECT_NEAR(corner.x, 0.0, 1e-9);
    EXPECT_NEAR(corner.y, 0.0, 1e-9);
    EXPECT_DOUBLE_EQ(view.lengthToView(1.0e9), 800.0);

    for (double scale : {1.0, 200.0, 2.5e7, 1.0e9, 3.0e12}) {
        view.viewScale = scale;
        resize(view, 800.0f, 600.0f);
        const ViewPoint middle = view.worldToView(3.0e8, -2.0e8);
        EXPECT_DOUBLE_EQ(middle.x, 400.0) << scale;
        EXPECT_DOUBLE_EQ(middle.y, 300.0) << scale;
        // Circles stay round: a metre is as many points high as wide.
        const ViewPoint up = view.worldToView(3.0e8, -2.0e8 + scale / 8);
        EXPECT_DOUBLE_EQ(up.y - middle.y, view.lengthToView(scale / 8)) << scale;
    }
}

TEST(Camera, AResizedViewKeepsTheWidthOfWorldItShows) {
    const Stellar earth = body(0.0, 0.0, 0.0, 0.0);
    DrawView view(1.0e9, earth.pos, earth);
    resize(view, 800.0f, 600.0f);
    const double pointsPerMetre = view.lengthToView(1.0);

    resize(view, 1600.0f, 600.0f);
    EXPECT_EQ(view.viewScale, 1.0e9);
    EXPECT_DOUBLE_EQ(view.lengthToView(1.0), 2 * pointsPerMetre);
    EXPECT_EQ(view.viewScaleH, 3.75e8);

    resize(view, 800.0f, 1200.0f);
    EXPECT_EQ(view.viewScaleH, 1.5e9);
    EXPECT_DOUBLE_EQ(view.lengthToView(1.0), pointsPerMetre);

    // Outside a redraw, or on a surface without area, the last sizes stay.
    view.initSizes();
    resize(view, 0.0f, 600.0f);
    EXPECT_EQ(view.viewWidth, 800.0);
    EXPECT_EQ(view.viewHeight, 1200.0);
    EXPECT_EQ(view.viewScaleH, 1.5e9);
}

TEST(Camera, GlidesTwelvePercentOfTheWayEachFrame) {
    // 100 km away along a diagonal, at rest.
    const double d = 1.0e5 / std::sqrt(2.0);
    const Stellar target = body(1.0e11 + d, 5.0e10 + d, 0.0, 0.0);
    DrawView view(1.0e9, body(1.0e11, 5.0e10, 0.0, 0.0).pos, target);
    const double expected[] = {88000.0, 77440.0, 68147.2};
    for (double remaining : expected) {
        view.moveCamera(600.0, true);
        const double dx = target.pos.x - view.viewCenter.x;
        const double dy = target.pos.y - view.viewCenter.y;
        EXPECT_NEAR(std::hypot(dx, dy), remaining, 1e-4);
        EXPECT_NEAR(dx, dy, 1e-4); // still on the diagonal
    }
}

TEST(Camera, LeadsAMovingBodySoTheLagDies) {
    // A body at a constant 30 km/s, 10 s of world per frame: while the world runs the remaining
    // distance shrinks to 0.88 of itself every frame; stopped, the body is still and only the glide
    // acts.
    const double vx = 3.0e4;
    const double vy = -1.0e4;
    const double timeStep = 10.0;
    Stellar target = body(2.0e5, 0.0, vx, vy);
    DrawView view(1.0e9, body(0.0, 0.0, 0.0, 0.0).pos, target);
    double gap = 2.0e5;
    for (int frame = 1; frame <= 20; ++frame) {
        target.pos.move(timeStep);
        view.viewTarget = target;
        view.moveCamera(timeStep, true);
        gap *= 0.88;
        const double remaining =
            std::hypot(target.pos.x - view.viewCenter.x, target.pos.y - view.viewCenter.y);
        EXPECT_NEAR(remaining, gap, 1e-6 * 2.0e5) << frame;
    }

    const Position before = view.viewCenter;
    view.moveCamera(timeStep, false);
    const double glided =
        std::hypot(target.pos.x - view.viewCenter.x, target.pos.y - view.viewCenter.y);
    const double was = std::hypot(target.pos.x - before.x, target.pos.y - before.y);
    EXPECT_NEAR(glided, 0.88 * was, 1e-6);
}

} // namespace
} // namespace apsis
