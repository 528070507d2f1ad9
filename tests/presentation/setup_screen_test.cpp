#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

const TextStyle kOption{FontFamily::Courier, 16.0f, colors::gray};
const TextStyle kSelected{FontFamily::Courier, 18.0f, colors::green, colors::black};

TEST(SetupScreen, PanelHeadingsPromptAndDifficultiesIn640x480) {
    DrawHarness h;
    h.files->addPicture("menu.jpg", 640, 480);
    h.files->addPicture("menuNew.jpg", 384, 60);
    h.view.drawChoice(1, 3);
    // Over the menu with "new game" highlighted, in a bevelled panel whose outer ring is white.
    EXPECT_EQ(h.canvas.ofKind(Op::DrawPicture).back()->rect, (Rect{128, 119, 385, 61}));
    EXPECT_EQ(h.canvas.filledRects(colors::white), (std::vector<Rect>{{130, 90, 380, 380}}));
    EXPECT_EQ(h.canvas.findText("New Game")->at,
              RecordingCanvas::centred("New Game", 36, 320, 415));
    EXPECT_EQ(h.canvas.findText("Difficulty < >")->at, (Point{145, 370}));
    EXPECT_EQ(h.canvas.findText("Level  ^ v")->at, (Point{145, 310}));
    const auto* prompt = h.canvas.findText("Spacebar to begin");
    EXPECT_EQ(prompt->at, (Point{495 - RecordingCanvas::textSize(prompt->text, 24).width,
                                 105})); // right end at 495
    const std::pair<const char*, double> names[] = {{"Easy", 240}, {"Medium", 320}, {"Hard", 400}};
    for (const auto& [name, x] : names) {
        const bool chosen = x == 400; // Hard
        const auto* drawn = h.canvas.findText(name);
        EXPECT_EQ(drawn->style, chosen ? kSelected : kOption) << name;
        EXPECT_EQ(drawn->at, RecordingCanvas::centred(name, chosen ? 18 : 16, x, 345));
    }
}

TEST(SetupScreen, ListsTheLevelsAtTwentyPointsAndHighlightsTheChosenOne) {
    const std::string eight = "1 Low Orbit\n2 Moon\n3 Venus\n4 Lagrange\n5 Mars\n6 Jupiter\n"
                              "7 Station\n8 Asteroid";
    struct Case {
        std::string file;
        int level;
        float highlightY; // 0: none
    };
    const Case cases[] = {
        {eight, 8, 143},
        {eight + "\n", 8, 163}, // the empty ninth piece takes the bottom line
        {eight, 0, 0},
        {eight, 9, 0},
    };
    for (const Case& c : cases) {
        DrawHarness h;
        h.files->textFiles["levels.txt"] = c.file;
        h.view.drawChoice(c.level, 2);
        // The first line at the top, the last piece of the file on the bottom line.
        const auto* first = h.canvas.findText("1 Low Orbit");
        EXPECT_EQ(first->at, (Point{210, c.file == eight ? 285.0f : 305.0f}));
        EXPECT_EQ(first->style, kOption);
        const auto& last = h.canvas.calls.back();
        if (c.highlightY == 0) {
            EXPECT_NE(last.at.x, 209.0f) << c.level;
            continue;
        }
        // Drawn again over its grey copy, one point left and two down.
        EXPECT_EQ(last.text, "8 Asteroid");
        EXPECT_EQ(last.at, (Point{209, c.highlightY}));
        EXPECT_EQ(last.style, kSelected);
    }
}

} // namespace
} // namespace apsis
