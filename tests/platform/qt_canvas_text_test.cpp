#include "platform/canvas_surface.h"

#include <gtest/gtest.h>
#include <optional>

namespace apsis {
namespace {

TEST_F(QtCanvasTest, TextInkLiesInItsMeasuredBoxAboveThePoint) {
    const TextStyle style{FontFamily::Courier, 12.0f, colors::green, std::nullopt};
    Size box;
    draw([&](Canvas& canvas) {
        box = canvas.measureText("Elapsed", style);
        canvas.drawText("Elapsed", {20, 30}, style);
    });
    // Courier sets every letter 0.6 of its size apart: seven letters of 12 points.
    EXPECT_NEAR(box.width, 7 * 0.6 * 12, 0.5);
    EXPECT_GT(box.height, 12.0f);
    EXPECT_LT(box.height, 12.0f * 1.5f);
    const Ink drawn = ink();
    ASSERT_FALSE(drawn.empty());
    EXPECT_GE(drawn.left, 20);
    EXPECT_LE(drawn.right, 20 + box.width);
    EXPECT_GE(drawn.bottom, 30);
    EXPECT_LE(drawn.top, 30 + box.height);
    EXPECT_GT(drawn.right - drawn.left, box.width * 0.7f); // the ink fills the box across
    EXPECT_LE(drawn.bottom, 30 + box.height / 3);          // the descender of "p" near the bottom
}

TEST_F(QtCanvasTest, SeveralLinesAreOneBlockWithItsFirstLineOnTop) {
    const TextStyle style{FontFamily::Courier, 16.0f, colors::white, std::nullopt};
    Size one, two, empty;
    draw([&](Canvas& canvas) {
        one = canvas.measureText("MMMMMMMM", style);
        two = canvas.measureText("MMMMMMMM\nM", style);
        empty = canvas.measureText("", style);
        canvas.drawText("MMMMMMMM\nM", {10, 10}, style);
    });
    EXPECT_EQ(empty, (Size{0, 0}));
    EXPECT_EQ(two.width, one.width);                      // the widest line
    EXPECT_NEAR(two.height - one.height, 16 * 1.25, 1.5); // one line of Courier 16 more
    const Ink drawn = ink();
    ASSERT_FALSE(drawn.empty());
    EXPECT_GE(drawn.bottom, 10);
    EXPECT_LE(drawn.top, 10 + two.height);
    // The long line is the upper one: across the top the ink runs far to the right, at the
    // bottom only one letter wide.
    bool longAtTop = false, longAtBottom = false;
    for (int x = 10 + static_cast<int>(one.width / 2); x < kWidth; ++x) {
        longAtTop = longAtTop || lit(x, drawn.top - 2);
        longAtBottom = longAtBottom || lit(x, drawn.bottom + 2);
    }
    EXPECT_TRUE(longAtTop);
    EXPECT_FALSE(longAtBottom);
}

TEST_F(QtCanvasTest, ABackgroundFillsExactlyTheMeasuredBox) {
    const TextStyle banner{FontFamily::Copperplate, 14.0f, colors::black, colors::red};
    Size box;
    draw([&](Canvas& canvas) {
        box = canvas.measureText(" Out Of Fuel ", banner);
        canvas.drawText(" Out Of Fuel ", {30, 40}, banner);
    });
    const Ink red = ink();
    ASSERT_FALSE(red.empty());
    EXPECT_EQ(red.left, 30);
    EXPECT_EQ(red.bottom, 40);
    EXPECT_NEAR(red.right + 1, 30 + box.width, 1.0);
    EXPECT_NEAR(red.top + 1, 40 + box.height, 1.0);
    EXPECT_EQ(at(31, 41), QColor(Qt::red)); // the blank at the start is red only
    // Black letters stand on the red.
    int black = 0;
    for (int x = red.left; x <= red.right; ++x)
        black += at(x, 40 + static_cast<int>(box.height / 2)).red() < 128;
    EXPECT_GT(black, 5);
}

TEST_F(QtCanvasTest, TextInARectangleRunsDownFromItsTop) {
    const TextStyle style{FontFamily::Times, 13.0f, colors::white, std::nullopt};
    draw([&](Canvas& canvas) {
        canvas.drawTextInRect("Dock with the station\nwithin the time", {10, 10, 180, 80}, style);
    });
    const Ink drawn = ink();
    ASSERT_FALSE(drawn.empty());
    EXPECT_GE(drawn.left, 10);
    EXPECT_LE(drawn.top, 89);
    EXPECT_GE(drawn.top, 80);    // the first line at the top of the rectangle
    EXPECT_GT(drawn.bottom, 40); // two lines reach nowhere near its bottom
}

} // namespace
} // namespace apsis
