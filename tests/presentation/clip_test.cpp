#include "presentation/clip.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace apsis {
namespace {

const ClipWindow kWindow{0.0, 0.0, 100.0, 50.0};

TEST(Clip, ASegmentKeepsWhatLiesInsideAndItsUncutEndsExactly) {
    const struct {
        ClipPoint a, b;
        bool kept;
        ClipPoint a2, b2; // the ends after the cut
    } cases[] = {
        {{10, 10}, {90.1, 40.3}, true, {10, 10}, {90.1, 40.3}}, // inside: untouched
        {{50, 25}, {150, 25}, true, {50, 25}, {100, 25}},       // out through the right
        {{-50, 25}, {150, 25}, true, {0, 25}, {100, 25}},       // across both sides
        {{50, -25}, {50, 75}, true, {50, 0}, {50, 50}},         // across bottom and top
        {{-10, 60}, {110, 60}, false, {}, {}},                  // parallel, above
        {{90, 70}, {130, 30}, false, {}, {}},                   // past the corner
        {{100, 50}, {120, 70}, true, {100, 50}, {100, 50}},     // touching the corner
    };
    for (const auto& c : cases) {
        ClipPoint a = c.a, b = c.b;
        ASSERT_EQ(clipSegment(a, b, kWindow), c.kept) << c.a.x << "," << c.a.y;
        if (c.kept) {
            EXPECT_EQ(a, c.a2) << a.x << "," << a.y;
            EXPECT_EQ(b, c.b2) << b.x << "," << b.y;
        }
    }
}

TEST(Clip, APolygonBecomesItsPartInsideWithTheWindowsEdgeForTheRest) {
    // A shape much larger than the window covers all of it.
    const std::vector<ClipPoint> huge{{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}};
    const std::vector<ClipPoint> window{{0, 0}, {100, 0}, {100, 50}, {0, 50}};
    auto inside = clipPolygon(huge, kWindow);
    ASSERT_EQ(inside.size(), 4u);
    for (const ClipPoint& corner : window)
        EXPECT_NE(std::find(inside.begin(), inside.end(), corner), inside.end());
    // A triangle poking out of the bottom loses its tip to a run along the edge.
    inside = clipPolygon({{40, 20}, {60, 20}, {50, -20}}, kWindow);
    EXPECT_EQ(inside.size(), 4u);
    for (const ClipPoint& p : inside)
        EXPECT_GE(p.y, 0.0);
    EXPECT_TRUE(clipPolygon({{200, 200}, {300, 200}, {250, 300}}, kWindow).empty());
}

// The pieces of a line within the window: one piece while it stays inside, a new one each time
// it comes back in.
TEST(Clip, APolylineIsHandedOnAsThePiecesInsideTheWindow) {
    using Step = std::pair<char, double>; // 'M' or 'L', and x
    struct Sink {
        std::vector<Step>* log;
        void moveTo(ClipPoint p) const { log->emplace_back('M', p.x); }
        void lineTo(ClipPoint p) const { log->emplace_back('L', p.x); }
    };
    std::vector<Step> log;
    ClippedPolyline line(kWindow, Sink{&log});
    for (const ClipPoint p :
         {ClipPoint{10, 10}, {20, 10}, {30, 10}, {30, 80}, {40, 80}, {40, 10}, {50, 10}, {-10, 10}})
        line.add(p);
    EXPECT_EQ(log, (std::vector<Step>{{'M', 10},
                                      {'L', 20},
                                      {'L', 30},
                                      {'L', 30},
                                      {'M', 40},
                                      {'L', 40},
                                      {'L', 50},
                                      {'L', 0}}));
}

} // namespace
} // namespace apsis
