#include "support/draw_harness.h"

#include <algorithm>
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
    for (const int difficulty : {3, 0}) {
        DrawHarness h;
        h.files->addPicture("menu.jpg", 640, 480);
        h.files->addPicture("menuNew.jpg", 384, 60);
        h.view.drawChoice(1, difficulty);
        // Over the menu with "new game" highlighted.
        const auto pictures = h.canvas.ofKind(Op::DrawPicture);
        ASSERT_EQ(pictures.size(), 2u);
        EXPECT_EQ(pictures[1]->rect, (Rect{128, 119, 385, 61}));
        // The bevelled panel, its outermost ring white.
        EXPECT_EQ(h.canvas.filledRects(colors::white), (std::vector<Rect>{{130, 90, 380, 380}}));
        const auto* title = h.canvas.findText("New Game");
        ASSERT_NE(title, nullptr);
        EXPECT_EQ(title->at, RecordingCanvas::centred("New Game", 36, 320, 415));
        EXPECT_EQ(h.canvas.findText("Difficulty < >")->at, (Point{145, 370}));
        EXPECT_EQ(h.canvas.findText("Level  ^ v")->at, (Point{145, 310}));
        const auto* prompt = h.canvas.findText("Spacebar to begin");
        EXPECT_EQ(prompt->at, (Point{495 - RecordingCanvas::textSize(prompt->text, 24).width,
                                     105})); // right end at 495

        const std::pair<const char*, double> names[] = {
            {"Easy", 240}, {"Medium", 320}, {"Hard", 400}};
        for (int i = 0; i < 3; ++i) {
            const bool chosen = difficulty == i + 1;
            const auto* drawn = h.canvas.findText(names[i].first);
            EXPECT_EQ(drawn->style, chosen ? kSelected : kOption) << difficulty << i;
            EXPECT_EQ(drawn->at, RecordingCanvas::centred(names[i].first, chosen ? 18 : 16,
                                                          names[i].second, 345));
        }
    }
}

TEST(SetupScreen, ListsTheLevelsAtTwentyPointsAndHighlightsTheChosenOne) {
    const std::string eight = "1 Low Orbit\n2 Moon\n3 Venus\n4 Lagrange\n5 Mars\n6 Jupiter\n"
                              "7 Station\n8 Asteroid";
    struct Case {
        std::string file;
        int level;
        const char* chosen; // nullptr: no highlight
        float highlightY;
    };
    const Case cases[] = {
        {eight, 1, "1 Low Orbit", 283},
        {eight, 8, "8 Asteroid", 143},
        {eight + "\n", 8, "8 Asteroid", 163}, // the empty ninth piece takes the bottom line
        {eight, 0, nullptr, 0},
        {eight, 9, nullptr, 0},
        {"only one", 2, nullptr, 0},
    };
    for (const Case& c : cases) {
        DrawHarness h;
        h.files->textFiles["levels.txt"] = c.file;
        h.view.drawChoice(c.level, 2);
        // The first line at the top, the last piece of the file on the bottom line.
        const auto* first = h.canvas.findText(c.file.substr(0, c.file.find('\n')));
        ASSERT_NE(first, nullptr);
        const float n = c.file == eight ? 8 : c.file == eight + "\n" ? 9 : 1;
        EXPECT_EQ(first->at, (Point{210, 145 + (n - 1) * 20}));
        EXPECT_EQ(first->style, kOption);
        const auto texts = h.canvas.ofKind(Op::DrawText);
        if (c.chosen == nullptr) {
            EXPECT_NE(texts.back()->at.x, 209.0f) << c.level;
            continue;
        }
        // Drawn again over its grey copy, one point left and two down.
        EXPECT_EQ(texts.back()->text, c.chosen);
        EXPECT_EQ(texts.back()->at, (Point{209, c.highlightY})) << c.level;
        EXPECT_EQ(texts.back()->style, kSelected);
    }
}

} // namespace
} // namespace apsis
