#include "physics/numeric.h"
#include "support/draw_harness.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

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

Point at(double x, double y) {
    return {static_cast<float>(x), static_cast<float>(y)};
}

Point polar(Point c, double r, double a) {
    return at(static_cast<double>(c.x) + std::cos(a) * r,
              static_cast<double>(c.y) + std::sin(a) * r);
}

TEST(BodyRendering, DrawsThePictureFromTenPointsAcrossAndASymbolBelow) {
    struct Case {
        double size;      // m
        double viewScale; // m
        bool picture;
    };
    const Case cases[] = {
        {12.76e6, 1e9, true},    // Earth, 10.2 points
        {12.76e6, 1.1e9, false}, // Earth, 9.3 points
        {10.0, 800.0, true},     // exactly 10 points
        {9.99, 800.0, false},
    };
    for (const Case& c : cases) {
        BodyScene s(c.viewScale);
        Stellar& earth = s.game.earth;
        earth.size = c.size;
        earth.pos = Position(c.viewScale / 4, 0.0, 0.0, 0.0); // 200 points right of the middle
        earth.pos.angle = kHalfPi;
        s.view.drawStel(earth, 0);

        const auto pictures = s.canvas.pictures();
        EXPECT_EQ(pictures.size(), c.picture ? 1u : 0u) << c.size << " at " << c.viewScale;
        EXPECT_EQ(s.canvas.findText("Earth") == nullptr, c.picture);
        if (!c.picture)
            continue;
        const double d = c.size / c.viewScale * 800;
        EXPECT_FLOAT_EQ(pictures[0]->rect.x, static_cast<float>(600 - d / 2));
        EXPECT_FLOAT_EQ(pictures[0]->rect.y, static_cast<float>(300 - d / 2));
        EXPECT_FLOAT_EQ(pictures[0]->rect.width, static_cast<float>(d));
        EXPECT_FLOAT_EQ(pictures[0]->rect.height, static_cast<float>(d));
        EXPECT_EQ(pictures[0]->source, (Rect{0, 448, 64, 64})); // facing up: frame 0
        EXPECT_EQ(pictures[0]->opacity, 1.0);
        EXPECT_EQ(s.canvas.calls.size(), 1u); // nothing but the picture
    }
}

TEST(BodyRendering, AMissingPictureShowsNothing) {
    BodyScene s(1e9);
    s.files->pictures.clear();
    s.view.drawStel(s.game.earth, 0);
    s.view.drawStel(s.game.moon, 1);
    EXPECT_TRUE(s.canvas.calls.empty());
}

TEST(BodyRendering, SymbolsLabelsAndArrows) {
    // Every body is a symbol at this scale: 1e12 m across 800 points.
    BodyScene s(1e12);
    Stellar& sun = s.game.sun;
    Stellar& earth = s.game.earth;
    earth.pos = Position(1e11, 5e10, 0.0, 0.0); // (480, 340) in the view
    earth.mainInfluence = &sun;
    const Point c = at(480, 340);
    const double theta = std::atan2(5e10, 1e11);

    struct Case {
        int style;
        bool label;
        Point labelAt;
        std::vector<Point> shape; // the path's points, the first a move (empty for the dot)
    };
    const double a = 1.0; // facing, rad
    const std::vector<Point> dart = {polar(c, 10, a), polar(c, 4, a + 3 * kPi / 4),
                                     polar(c, 4, a - 3 * kPi / 4)};
    const std::vector<Point> flame = {
        polar(c, 10, a),       polar(c, 4, a + 3 * kPi / 4),   polar(c, 4, a + 11 * kPi / 12),
        polar(c, 10, a + kPi), polar(c, 4, a - 11 * kPi / 12), polar(c, 4, a - 3 * kPi / 4)};
    // The plus sign's outline, as offsets from the centre.
    constexpr float kCross[24] = {-4, 1,  -1, 1,  -1, 4,  1,  4,  1,  1,  4,  1,
                                  4,  -1, 1,  -1, 1,  -4, -1, -4, -1, -1, -4, -1};
    std::vector<Point> cross;
    for (std::size_t i = 0; i < 24; i += 2)
        cross.push_back({c.x + kCross[i], c.y + kCross[i + 1]});
    const Case cases[] = {
        {0, true, {482.5f, 342.5f}, {}}, {1, true, {482.5f, 325.5f}, {}},
        {2, false, {}, cross},           {3, false, {}, dart},
        {4, false, {}, flame},           {7, false, {}, dart}, // unknown styles draw as 3
    };
    for (const Case& k : cases) {
        s.canvas.clear();
        earth.pos.angle = a;
        s.view.drawStel(earth, k.style);
        const auto drawn = s.canvas.drawing();

        // The arrow first, from 10 to 25 points out, pointing away from the Sun, in dark grey.
        ASSERT_GE(drawn.size(), 2u);
        ASSERT_EQ(drawn[0]->op, Op::StrokePath);
        EXPECT_EQ(drawn[0]->color, colors::darkGray);
        std::vector<Path::Element> arrow;
        for (const auto& [r, turn] :
             {std::pair{10.0, 0.0}, {25.0, 0.0}, {20.0, -0.15}, {25.0, 0.0}, {20.0, 0.15}}) {
            const Point p = polar(c, r, theta + turn);
            arrow.push_back(
                {arrow.empty() ? Path::Kind::MoveTo : Path::Kind::LineTo, {p.x, p.y, 0, 0}});
        }
        EXPECT_EQ(drawn[0]->path.elements, arrow) << k.style;

        // Then the blue name, for dots only.
        std::size_t next = 1;
        if (k.label) {
            ASSERT_EQ(drawn[next]->op, Op::DrawText);
            EXPECT_EQ(drawn[next]->text, "Earth");
            EXPECT_EQ(drawn[next]->at, k.labelAt) << k.style;
            EXPECT_EQ(drawn[next]->style, (TextStyle{FontFamily::Label, 12.0f, colors::blue}));
            ++next;
        }

        // Then the green shape.
        ASSERT_EQ(drawn.size(), next + 1) << k.style;
        ASSERT_EQ(drawn[next]->op, Op::FillPath);
        EXPECT_EQ(drawn[next]->color, colors::green);
        const auto& elements = drawn[next]->path.elements;
        if (k.shape.empty()) {
            ASSERT_EQ(elements.size(), 1u);
            EXPECT_EQ(elements[0].kind, Path::Kind::Oval);
            EXPECT_EQ(elements[0].rect, (Rect{477.5f, 337.5f, 5, 5}));
            continue;
        }
        ASSERT_EQ(elements.size(), k.shape.size()) << k.style;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            EXPECT_EQ(elements[i].kind, i == 0 ? Path::Kind::MoveTo : Path::Kind::LineTo);
            EXPECT_EQ(elements[i].rect.x, k.shape[i].x) << k.style << " point " << i;
            EXPECT_EQ(elements[i].rect.y, k.shape[i].y) << k.style << " point " << i;
        }
    }
}

TEST(BodyRendering, AShipFacingUpPointsItsNoseUpAndItsFlameDown) {
    BodyScene s(1e12);
    s.files->addPicture("ship.gif", 256, 256);
    Player& ship = s.game.player;
    ship.pos.angle = kHalfPi;
    s.view.drawStel(ship, 4);
    const auto fills = s.canvas.ofKind(Op::FillPath);
    ASSERT_EQ(fills.size(), 1u);
    const auto& e = fills[0]->path.elements;
    ASSERT_EQ(e.size(), 6u);
    EXPECT_NEAR(e[0].rect.x, 400, 1e-4); // nose
    EXPECT_NEAR(e[0].rect.y, 310, 1e-4);
    EXPECT_NEAR(e[1].rect.x, 400 - 4 / std::sqrt(2.0), 1e-4); // rear corners, 45 degrees down
    EXPECT_NEAR(e[1].rect.y, 300 - 4 / std::sqrt(2.0), 1e-4);
    EXPECT_NEAR(e[5].rect.x, 400 + 4 / std::sqrt(2.0), 1e-4);
    EXPECT_NEAR(e[5].rect.y, 300 - 4 / std::sqrt(2.0), 1e-4);
    EXPECT_NEAR(e[3].rect.x, 400, 1e-4); // flame tail
    EXPECT_NEAR(e[3].rect.y, 290, 1e-4);
    // The ship circles nothing yet: no arrow.
    EXPECT_EQ(s.canvas.count(Op::StrokePath), 0u);
}

TEST(BodyRendering, SkipsSymbolsThatCannotReachTheView) {
    struct Case {
        double x, y;      // view points of the body's centre
        bool arrowAndDot; // both reach up to 25 points
        bool label;
    };
    const Case cases[] = {
        {-24, 300, true, true},    // its arrow can reach in
        {-26, 300, false, true},   // the label still might
        {824, 300, true, true},    // beyond the right edge
        {826, 300, false, true},   // the label runs away from the view: drawn, harmlessly
        {400, -26, false, true},   // below
        {400, 626, false, true},   // above
        {-1e8, 300, false, false}, // far away
        {1e11, 1e11, false, false},
    };
    for (const Case& c : cases) {
        BodyScene s(1e12);
        Stellar& earth = s.game.earth;
        earth.mainInfluence = &s.game.sun;
        s.game.sun.pos = Position(-1e15, 0.0, 0.0, 0.0);
        // From view points back to metres: 1.25e9 m per point about the origin.
        earth.pos = Position((c.x - 400) * 1.25e9, (c.y - 300) * 1.25e9, 0.0, 0.0);
        s.view.drawStel(earth, 0);
        EXPECT_EQ(s.canvas.count(Op::StrokePath), c.arrowAndDot ? 1u : 0u) << c.x << "," << c.y;
        EXPECT_EQ(s.canvas.count(Op::FillPath), c.arrowAndDot ? 1u : 0u) << c.x << "," << c.y;
        EXPECT_EQ(s.canvas.count(Op::DrawText), c.label ? 1u : 0u) << c.x << "," << c.y;
    }
}

// Where a view coordinate lands in the source, by a destination/source pair on one axis.
double sourceAt(double v, double destStart, double destLength, double srcStart, double srcLength) {
    return srcStart + (v - destStart) / destLength * srcLength;
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
        {200.0, -3e6, 2e6, 1.234, true},          // inside the disc, off its centre
        {5e4, 6.3e6, 0.0, 0.3, true},             // near the right limb: cut on one side
        {1.0, 1e5, -4e6, 4.0, false},             // a metre across
        {1e-3, 0.0, 0.0, 2.0, false},             // a millimetre across
        {2e7, 0.0, 0.0, 0.0, true},               // 500 points across: whole, as it is
    };
    for (const Case& c : cases) {
        BodyScene s(c.viewScale);
        Stellar& earth = s.game.earth;
        earth.pos = Position(1.5e11, 0.0, 0.0, 0.0);
        earth.pos.angle = c.angle;
        s.view.viewCenter = Position(1.5e11 + c.offsetX, c.offsetY, 0.0, 0.0);
        s.view.drawStel(earth, 0);

        // The pair the picture would have been drawn with, in double.
        const double d = earth.size * 800 / c.viewScale;
        const ViewPoint centre = s.view.worldToView(earth.pos.x, earth.pos.y);
        const double x = centre.x - d / 2;
        const double y = centre.y - d / 2;
        const Rect frame = earth.getImageRect();

        const auto pictures = s.canvas.pictures();
        ASSERT_EQ(pictures.size(), 1u) << c.viewScale;
        const Rect dest = pictures[0]->rect;
        const Rect src = pictures[0]->source;
        if (d < 800) {
            EXPECT_FLOAT_EQ(dest.width, static_cast<float>(d));
            EXPECT_EQ(src, frame);
            continue;
        }
        // Small enough for the canvas, and the view still covered where the picture lies.
        EXPECT_LE(dest.width, 800.0f + 256) << c.viewScale;
        EXPECT_LE(dest.height, 600.0f + 256) << c.viewScale;
        EXPECT_LE(static_cast<double>(dest.x), std::max(x, 0.0));
        EXPECT_GE(static_cast<double>(dest.x + dest.width), std::min(x + d, 800.0));
        EXPECT_LE(static_cast<double>(dest.y), std::max(y, 0.0));
        EXPECT_GE(static_cast<double>(dest.y + dest.height), std::min(y + d, 600.0));
        // Within the frame it was cut from.
        EXPECT_GE(src.x, frame.x);
        EXPECT_LE(src.x + src.width, frame.x + frame.width);
        EXPECT_GE(src.y, frame.y);
        EXPECT_LE(src.y + src.height, frame.y + frame.height);
        // Every point of the view takes its colour from the same place of the source as before:
        // to within a hundredth of a view point, or at the deepest zooms within a float step of
        // the source (a ten-thousandth of one of its pixels).
        const double perPoint = 64 / d; // source points per view point
        const double tolerance = c.exact ? 0.01 * perPoint : 3.1e-5;
        for (double v : {0.0, 123.4, 400.0, 799.0}) {
            const double cut = sourceAt(v, dest.x, dest.width, src.x, src.width);
            const double whole = sourceAt(v, x, d, frame.x, frame.width);
            EXPECT_NEAR(cut, whole, tolerance) << c.viewScale << " x " << v;
        }
        for (double v : {0.0, 300.0, 599.0}) {
            const double cut = sourceAt(v, dest.y, dest.height, src.y, src.height);
            const double whole = sourceAt(v, y, d, frame.y, frame.height);
            EXPECT_NEAR(cut, whole, tolerance) << c.viewScale << " y " << v;
        }
    }
}

TEST(BodyRendering, APictureEntirelyOutOfSightIsNotHandedOn) {
    BodyScene s(1e9);
    s.game.earth.pos = Position(-1e12, 0.0, 0.0, 0.0); // 800,000 points to the left, 10 across
    s.view.drawStel(s.game.earth, 0);
    EXPECT_TRUE(s.canvas.calls.empty());
}

} // namespace
} // namespace apsis
