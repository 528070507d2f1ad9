#include "support/recording_canvas.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

// The drawing tests compute their expected positions with this rule.
TEST(RecordingCanvas, MeasuresByTheLongestLineAndTheNumberOfLines) {
    struct Case {
        const char* text;
        Size expected; // at size 10
    };
    const Case cases[] = {{"", {0, 0}},
                          {"abcde", {30, 12}},
                          {"ab\nabcd\nx", {24, 36}},
                          {"abc\n", {18, 24}},              // a final line feed opens an empty line
                          {"\xC3\xA9t\xC3\xA9", {18, 12}}}; // three characters in five bytes
    for (const Case& c : cases) {
        RecordingCanvas canvas;
        EXPECT_EQ(canvas.measureText(c.text, {FontFamily::Times, 10.0f}), c.expected) << c.text;
    }
}

} // namespace
} // namespace apsis
