#include "physics/numeric.h"
#include "support/draw_harness.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

// A camera of viewScale metres across an 800 x 600 view, centred on the origin.
struct BodyScene : DrawHarness {
    explicit BodyScene(double viewScale) : DrawHarness({800.0f, 600.0f}) {
        view.viewScale = viewScale;
        view.viewCenter = Position();
        view.initSizes();
        files->addPicture("earth.jpg", 512, 512);
    }
};

TEST(BodyRendering, APictureFromTenPointsAcrossAndASymbolBelow) {
    struct Case {
        double size;      // m
        double viewScale; // m
        bool picture;
    };
    const Case cases[] = {{10.0, 800.0, true}, {9.99, 800.0, false}};
    for (const Case& c : cases) {
        BodyScene s(c.viewScale);
        Stellar& earth = s.game.earth;
        earth.size = c.size;
        earth.pos = Position(c.viewScale / 4, 0.0, 0.0, 0.0); // 200 points right of the middle
        earth.pos.angle = kHalfPi;
        s.view.drawStel(earth, 0);
        const auto pictures = s.canvas.ofKind(Op::DrawPicture);
        ASSERT_EQ(pictures.size(), c.picture ? 1u : 0u) << c.size << " at " << c.viewScale;
        EXPECT_EQ(s.canvas.findText("Earth") == nullptr, c.picture);
        if (!c.picture)
            continue;
        const double d = c.size / c.viewScale * 800;
        const Rect expected = {static_cast<float>(600 - d / 2), static_cast<float>(300 - d / 2),
                               static_cast<float>(d), static_cast<float>(d)};
        EXPECT_EQ(pictures[0]->rect, expected);
        EXPECT_EQ(pictures[0]->source, (Rect{0, 448, 64, 64})); // facing up: frame 0
        EXPECT_EQ(s.canvas.calls.size(), 1u);                   // nothing but the picture
    }

    // A missing picture, or one wholly out of sight, is not drawn at all.
    BodyScene s(1e9);
    s.view.drawStel(s.game.moon, 1);
    s.game.earth.pos = Position(-1e12, 0.0, 0.0, 0.0); // 800,000 points to the left
    s.view.drawStel(s.game.earth, 0);
    EXPECT_TRUE(s.canvas.calls.empty());
}

TEST(BodyRendering, SkipsSymbolsThatCannotReachTheView) {
    struct Case {
        double x, y;      // view points of the body's centre
        bool arrowAndDot; // both reach up to 25 points
        bool label;       // up to 200
    };
    const Case cases[] = {
        {-24, 300, true, true},
        {826, 300, false, true},
        {400, 626, false, true},
        {-1e8, 300, false, false},
    };
    for (const Case& c : cases) {
        BodyScene s(1e12);
        Stellar& earth = s.game.earth;
        earth.mainInfluence = &s.game.sun;
        s.game.sun.pos = Position(-1e15, 0.0, 0.0, 0.0);
        earth.pos = Position((c.x - 400) * 1.25e9, (c.y - 300) * 1.25e9, 0.0, 0.0);
        s.view.drawStel(earth, 0);
        // The arrow and the dot, then the label.
        EXPECT_EQ(s.canvas.calls.size(), (c.arrowAndDot ? 2u : 0u) + (c.label ? 1u : 0u))
            << c.x << "," << c.y;
    }
}

TEST(BodyRendering, CutsAHugePictureToTheViewAndKeepsItsPixelsInPlace) {
    struct Case {
        double viewScale; // m
        double offsetX;   // m from the Earth's centre to the middle of the view
        double offsetY;
        double angle;
        bool exact; // the cut maps exactly; else to within a float step of the source
    };
    const Case cases[] = {
        {200.0, 0.0, 6.38e6 + 50, kHalfPi, true}, // 50 m above the surface, 200 m across
        {5e4, 6.3e6, 0.0, 0.3, true},             // near the right limb: cut on one side
        {1e-3, 0.0, 0.0, 2.0, false},             // a millimetre across
    };
    for (const Case& c : cases) {
        BodyScene s(c.viewScale);
        Stellar& earth = s.game.earth;
        earth.pos = Position(1.5e11, 0.0, 0.0, 0.0);
        earth.pos.angle = c.angle;
        s.view.viewCenter = Position(1.5e11 + c.offsetX, c.offsetY, 0.0, 0.0);
        s.view.drawStel(earth, 0);
        // The pair the whole picture would have been drawn with, in double.
        const double d = earth.size * 800 / c.viewScale;
        const ViewPoint centre = s.view.worldToView(earth.pos.x, earth.pos.y);
        const double x = centre.x - d / 2;
        const double y = centre.y - d / 2;
        const Rect frame = earth.getImageRect();
        const auto pictures = s.canvas.ofKind(Op::DrawPicture);
        ASSERT_EQ(pictures.size(), 1u) << c.viewScale;
        const Rect dest = pictures[0]->rect;
        const Rect src = pictures[0]->source;
        // Small enough for the canvas, the view still covered where the picture lies, and
        // within the frame it was cut from.
        EXPECT_LE(dest.width, 800.0f + 256) << c.viewScale;
        EXPECT_LE(dest.height, 600.0f + 256) << c.viewScale;
        EXPECT_LE(static_cast<double>(dest.x), std::max(x, 0.0));
        EXPECT_GE(static_cast<double>(dest.x + dest.width), std::min(x + d, 800.0));
        EXPECT_LE(static_cast<double>(dest.y), std::max(y, 0.0));
        EXPECT_GE(static_cast<double>(dest.y + dest.height), std::min(y + d, 600.0));
        EXPECT_TRUE(src.x >= frame.x && src.x + src.width <= frame.x + frame.width);
        EXPECT_TRUE(src.y >= frame.y && src.y + src.height <= frame.y + frame.height);
        // Every point of the view takes its colour from the same place of the source as before:
        // to within a hundredth of a view point, or at the deepest zooms within a float step of
        // the source (a ten-thousandth of one of its pixels).
        const double tolerance = c.exact ? 0.01 * 64 / d : 3.1e-5;
        const auto sourceAt = [](double v, double start, double length, float from, float span) {
            return static_cast<double>(from) + (v - start) / length * static_cast<double>(span);
        };
        // Both maps are straight lines: agreeing at two points, they agree everywhere.
        for (const double v : {0.0, 599.0}) {
            EXPECT_NEAR(sourceAt(v, dest.x, dest.width, src.x, src.width),
                        sourceAt(v, x, d, frame.x, frame.width), tolerance)
                << c.viewScale << " x " << v;
            EXPECT_NEAR(sourceAt(v, dest.y, dest.height, src.y, src.height),
                        sourceAt(v, y, d, frame.y, frame.height), tolerance)
                << c.viewScale << " y " << v;
        }
    }
}

} // namespace
} // namespace apsis
