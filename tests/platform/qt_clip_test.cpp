#include "platform/qt_clip.h"

#include <gtest/gtest.h>

#include <QPainterPath>

namespace apsis {
namespace {

const QRectF kWindow(0, 0, 100, 50);

TEST(QtClip, SegmentsAreCutAtTheWindowsEdges) {
    const struct {
        QPointF a, b;
        bool kept;
        QPointF cutA, cutB;
    } cases[] = {
        {{10, 10}, {90, 40}, true, {10, 10}, {90, 40}},      // inside: untouched
        {{-1e12, 25}, {1e12, 25}, true, {0, 25}, {100, 25}}, // across, from far away
        {{50, -10}, {50, 60}, true, {50, 0}, {50, 50}},      // top to bottom
        {{-50, 0}, {50, 100}, true, {0, 50}, {0, 50}},       // touching a corner
        {{-10, -10}, {-1, 60}, false, {}, {}},               // passing by on the left
        {{110, 10}, {200, 10}, false, {}, {}},               // parallel, outside
        {{-100, 75}, {75, -100}, false, {}, {}},             // missing the corner
        {{90, 40}, {110, 60}, true, {90, 40}, {100, 50}},    // leaving through a corner
    };
    for (const auto& c : cases) {
        QPointF a = c.a, b = c.b;
        ASSERT_EQ(clipSegment(a, b, kWindow), c.kept) << c.a.x() << "," << c.a.y();
        if (!c.kept)
            continue;
        EXPECT_NEAR(a.x(), c.cutA.x(), 1e-9);
        EXPECT_NEAR(a.y(), c.cutA.y(), 1e-9);
        EXPECT_NEAR(b.x(), c.cutB.x(), 1e-9);
        EXPECT_NEAR(b.y(), c.cutB.y(), 1e-9);
    }
}

// Whether a point is inside a polygon by the winding rule.
bool covers(const QPolygonF& polygon, QPointF p) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addPolygon(polygon);
    return path.contains(p);
}

TEST(QtClip, PolygonsKeepWhatTheyCoverInsideTheWindow) {
    // A triangle reaching a million million points out on both sides.
    const QPolygonF wide({{-1e12, 10}, {1e12, 10}, {0, 40}});
    const QPolygonF cut = clipPolygon(wide, kWindow);
    for (const QPointF& p : cut) {
        EXPECT_TRUE(kWindow.adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(p));
    }
    for (const QPointF p : {QPointF(1, 11), QPointF(99, 11), QPointF(50, 35), QPointF(50, 20)}) {
        EXPECT_EQ(covers(cut, p), covers(wide, p)) << p.x() << "," << p.y();
    }
    EXPECT_FALSE(covers(cut, {50, 5}));

    // A polygon around the whole window becomes the window.
    const QPolygonF around({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}});
    EXPECT_EQ(clipPolygon(around, kWindow).boundingRect(), kWindow);

    // One wholly outside leaves nothing, and a dart wholly inside stays as it is.
    EXPECT_TRUE(clipPolygon(QPolygonF({{200, 0}, {300, 0}, {250, 40}}), kWindow).isEmpty());
    const QPolygonF dart({{50, 10}, {56, 30}, {44, 30}});
    EXPECT_EQ(clipPolygon(dart, kWindow), dart);
}

} // namespace
} // namespace apsis
