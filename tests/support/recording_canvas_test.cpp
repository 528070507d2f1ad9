#include "support/recording_canvas.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

TEST(RecordingCanvas, MeasuresByTheLongestLineAndTheNumberOfLines) {
    struct Case {
        const char* text;
        float size;
        Size expected;
    };
    const Case cases[] = {
        {"", 12.0f, {0.0f, 0.0f}},
        {"abcde", 10.0f, {30.0f, 12.0f}},
        {"ab\nabcd\nx", 10.0f, {24.0f, 36.0f}},
        {"abc\n", 10.0f, {18.0f, 24.0f}},             // a final line feed opens an empty line
        {"\xC3\xA9t\xC3\xA9", 10.0f, {18.0f, 12.0f}}, // three characters in five bytes
    };
    for (const Case& c : cases) {
        RecordingCanvas canvas;
        const Size got = canvas.measureText(c.text, {FontFamily::Times, c.size, colors::white});
        EXPECT_FLOAT_EQ(got.width, c.expected.width) << c.text;
        EXPECT_FLOAT_EQ(got.height, c.expected.height) << c.text;
    }
}

TEST(RecordingCanvas, KeepsCallsInOrderAndFindsThem) {
    RecordingCanvas canvas({800.0f, 600.0f});
    EXPECT_EQ(canvas.size(), (Size{800.0f, 600.0f}));
    const TextStyle style{FontFamily::Courier, 12.0f, colors::green};
    canvas.fillRect({1, 2, 3, 4}, colors::blue);
    canvas.measureText("Fuel", style);
    canvas.drawText("Fuel: <01s>", {5, 6}, style);
    canvas.fillRect({7, 8, 9, 10}, colors::black);
    canvas.drawTextInRect("brief", {0, 0, 50, 20}, style);
    canvas.fillRect({11, 12, 13, 14}, colors::blue);

    EXPECT_EQ(canvas.calls.size(), 6u);
    EXPECT_EQ(canvas.drawing().size(), 5u);
    EXPECT_EQ(canvas.texts(), (std::vector<std::string>{"Fuel: <01s>", "brief"}));
    EXPECT_EQ(canvas.filledRects(colors::blue),
              (std::vector<Rect>{{1, 2, 3, 4}, {11, 12, 13, 14}}));
    ASSERT_NE(canvas.findTextStartingWith("Fuel: "), nullptr);
    EXPECT_EQ(canvas.findTextStartingWith("Fuel: ")->at, (Point{5, 6}));
    EXPECT_EQ(canvas.findText("Fuel"), nullptr); // a measurement is not a drawing
    EXPECT_EQ(canvas.findText("brief")->rect, (Rect{0, 0, 50, 20}));
    EXPECT_EQ(canvas.count(RecordingCanvas::Op::FillRect), 3u);
}

} // namespace
} // namespace apsis
