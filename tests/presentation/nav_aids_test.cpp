#include "physics/numeric.h"
#include "presentation/format.h"
#include "presentation/nav_parts.h"
#include "support/aids_frame.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

// A craft with its motion and heading, a path from it, and a satellite to reach.
NavAids craftAt(const AidsFrame& f, double x, double y) {
    NavAids a;
    a.craft = f.at(x, y);
    a.hasMotion = true;
    a.motion = {1, 0};
    a.nose = 0.5;
    a.noseSettles = 1.2;
    a.isTurning = true;
    a.sun = f.at(-5000, y);
    for (int i = 0; i <= 20; ++i)
        a.path.push_back(f.at(x + 12.0 * i, y - 3.0 * i));
    a.isCutShort = true;
    a.pathTime = 3600;
    a.hasOrbit = true;
    a.high = {true, f.at(x + 40, y - 10), 2e6, 900, ""};
    a.low = {true, f.at(x + 20, y + 14), 3e5, 300, ""};
    a.hasTarget = true;
    a.targetName = "Satellite";
    a.targetGap = 12345;
    a.target = f.at(x + 60, y + 20);
    a.approach = {{true, f.at(x + 30, y + 4), 1234, 600, "Satellite"}, f.at(x + 90, y + 40), 7.5};
    return a;
}

// A busy scene: the craft as craftAt sets it up at a place of the view, more set up, and the
// labels that must all be shown.
struct BusyScene {
    const char* name;
    double x, y; // the craft, view points
    std::function<void(AidsFrame&)> more;
    std::vector<std::string> labels;
};

void expectClearInBusyScene(const BusyScene& test, Size size) {
    SCOPED_TRACE(testing::Message() << test.name << " at " << size.width << "x" << size.height);
    const double w = static_cast<double>(size.width), h = static_cast<double>(size.height);
    AidsFrame f(size);
    f.aids = craftAt(f, test.x, test.y);
    if (test.more)
        test.more(f);
    f.draw();
    std::vector<Box> held; // the display's texts and bars, not its background
    for (const RC::Call* c : f.calls(false)) {
        if (c->op == RC::Op::DrawText ||
            (c->op == RC::Op::FillRect && static_cast<double>(c->rect.width) < w))
            held.push_back(boxOf(*c));
    }
    const ViewPoint craft = nav::place(f.h.view, f.aids.craft);
    const Box craftBox = nav::boxAround(craft, 10);
    const Box scaleBar{40, 10, w - 40, 20};
    // Each text of the aids on a dark plate, and the plates, which hold the texts, clear of
    // one another and of everything else.
    std::vector<Box> plates;
    for (const RC::Call* c : f.calls(true)) {
        if (c->op == RC::Op::DrawText) {
            const Box b = boxOf(*c);
            const Box p = plates.empty() ? Box{} : plates.back();
            EXPECT_TRUE(p.left <= b.left && p.right >= b.right && p.bottom <= b.bottom &&
                        p.top >= b.top)
                << c->text << " without a plate";
            continue;
        }
        if (c->op == RC::Op::FillRect && c->color == nav::kPlateColor) {
            const Box b = boxOf(*c);
            EXPECT_FALSE(b.overlaps(craftBox));
            EXPECT_FALSE(b.overlaps(scaleBar));
            EXPECT_TRUE(b.left >= 0 && b.bottom >= 0 && b.right <= w && b.top <= h);
            for (const Box& other : held)
                EXPECT_FALSE(b.overlaps(other)) << "a plate on the display's read-outs";
            for (const Box& other : plates)
                EXPECT_FALSE(b.overlaps(other)) << "plates overlap";
            plates.push_back(b);
            continue;
        }
        if (c->color == nav::kPathColor || c->color == nav::kNoseColor)
            continue;
        for (const Path::Element& e : c->path.elements) {
            const double x = static_cast<double>(e.rect.x + e.rect.width / 2);
            const double y = static_cast<double>(e.rect.y + e.rect.height / 2);
            EXPECT_GT(std::hypot(x - craft.x, y - craft.y), 8.0) << "a mark on the craft";
        }
    }
    for (const std::string& label : test.labels)
        EXPECT_TRUE(f.hasAidText(label)) << label;
    EXPECT_TRUE(f.hasAidText("Closest to Satellite: ", true));
}

// In busy scenes every label stands clear of the others, of the display's read-outs, of the
// notices over the view and of the craft, and none of the marks' labels is left out; no mark
// but the path and the heading comes near the craft.
TEST(NavAidsDrawing, LabelsStandClearInBusyScenes) {
    // At two sizes of the view: marks near its edges, its middle and the notice of a pause there.
    for (const Size size : {Size{1280.0f, 800.0f}, Size{1920.0f, 1080.0f}}) {
        const double w = static_cast<double>(size.width), h = static_cast<double>(size.height);
        const double cx = w / 2, cy = h / 2;
        const BusyScene cases[] = {
            {"under the left column",
             60,
             h - 110,
             nullptr,
             {"High", "Low", "Closest", "path ends", "Sun", "Satellite then"}},
            {"under the right column", w - 70, h - 105, nullptr, {"High", "Low", "Closest", "Sun"}},
            {"on the scale bar", 300, 40, nullptr, {"High", "Low", "Closest", "Sun"}},
            {"approach on the craft",
             cx,
             cy,
             [=](AidsFrame& f) {
                 f.aids.approach.at = f.at(cx + 2, cy + 1);
                 f.aids.approach.bodyThen = f.at(cx + 1, cy + 3);
                 f.aids.target = f.at(cx + 1, cy + 2);
                 f.aids.low.at = f.at(cx + 4, cy - 2);
             },
             {"High", "path ends", "Sun"}},
            {"crowded and paused",
             cx,
             cy + 70,
             [=](AidsFrame& f) {
                 f.h.game.running = false;
                 f.aids.impact = {true, f.at(cx + 15, cy + 70), 0, 800, "Earth"};
                 f.aids.target = f.at(-300, h + 100);
                 f.aids.phase = {true,
                                 f.at(cx - 40, cy + 30),
                                 f.at(cx, cy + 70),
                                 f.at(cx - 80, cy + 70),
                                 1.5,
                                 "The Moon",
                                 "You",
                                 "Earth"};
             },
             {"High", "Low", "Closest", "Impact", "path ends", "Sun", "86\u00b0"}},
        };
        for (const BusyScene& test : cases)
            expectClearInBusyScene(test, size);
    }
}

// The nose line leaves the craft the way the nose points, long enough to read at any zoom; while
// the craft still turns, an open head marks where the nose comes to rest.
TEST(NavAidsDrawing, NoseLineAndWhereItSettles) {
    for (const double nose : {0.0, 1.0, 2.5, 4.0, 5.5}) {
        for (const double zoom : {2e2, 1e9}) {
            AidsFrame f;
            f.h.view.viewScale = zoom;
            f.h.view.initSizes();
            f.aids.craft = f.at(500, 300);
            f.aids.nose = nose;
            f.aids.noseSettles = nose + 0.9;
            f.aids.isTurning = zoom > 1e3;
            f.draw();
            int lines = 0, heads = 0;
            for (const RC::Call* c : f.calls(true)) {
                if (c->color != nav::kNoseColor)
                    continue;
                const auto& points = c->path.elements;
                const ViewPoint first{points.front().rect.x, points.front().rect.y};
                const ViewPoint last{points.back().rect.x, points.back().rect.y};
                const auto towards = [](ViewPoint p) { return std::atan2(p.y - 300, p.x - 500); };
                if (c->op == RC::Op::StrokePath && points.size() == 2) { // the line
                    EXPECT_NEAR(std::remainder(towards(last) - nose, kTwoPi), 0, 1e-4);
                    EXPECT_GE(std::hypot(last.x - 500, last.y - 300), 30.0);
                    ++lines;
                } else if (c->op == RC::Op::StrokePath) { // the open head, from its tip
                    EXPECT_NEAR(std::remainder(towards(first) - (nose + 0.9), kTwoPi), 0, 1e-4);
                    ++heads;
                }
            }
            EXPECT_EQ(lines, 1) << nose;
            EXPECT_EQ(heads, f.aids.isTurning ? 1 : 0) << nose;
        }
    }
}

// A target out of sight gets an arrow at the edge of the view, the way it lies from the middle,
// with its name and distance beside it; read-outs push it in along the same line. So does the
// craft itself, out of sight while the view follows a body.
TEST(NavAidsDrawing, ArrowAtTheEdgeTowardsATargetOutOfSight) {
    const ViewPoint targets[] = {{-900, 400}, {-820, 1400}, {2000, -300}, {640, 5000}, {1500, 420}};
    for (const bool isCraft : {false, true}) {
        for (const ViewPoint& t : targets) {
            SCOPED_TRACE(testing::Message()
                         << (isCraft ? "craft " : "target ") << t.x << "," << t.y);
            AidsFrame f;
            f.aids.craft = isCraft ? f.at(t.x, t.y) : f.at(640, 400);
            f.aids.hasTarget = !isCraft;
            f.aids.target = f.at(t.x, t.y);
            f.aids.targetName = "Mars";
            f.aids.targetGap = 7.5e10;
            f.draw();
            const Color& color = isCraft ? nav::kNoseColor : nav::kTargetColor;
            const RC::Call* arrow = nullptr;
            for (const RC::Call* c : f.calls(true)) {
                if (c->op == RC::Op::FillPath && c->color == color)
                    arrow = c;
            }
            ASSERT_NE(arrow, nullptr);
            const ViewPoint tip{arrow->path.elements.front().rect.x,
                                arrow->path.elements.front().rect.y};
            EXPECT_TRUE(tip.x > 0 && tip.x < kW && tip.y > 0 && tip.y < kH);
            for (const RC::Call* c : f.calls(false)) {
                EXPECT_FALSE(c->op == RC::Op::DrawText && boxOf(*c).contains(tip)) << c->text;
            }
            EXPECT_NEAR(std::remainder(std::atan2(tip.y - 400, tip.x - 640) -
                                           std::atan2(t.y - 400, t.x - 640),
                                       kTwoPi),
                        0, 1e-3);
            EXPECT_TRUE(f.hasAidText(isCraft ? "You" : "Mars " + formatDist(7.5e10)));
        }
    }
}

} // namespace
} // namespace apsis
