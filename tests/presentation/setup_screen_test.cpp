#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

const TextStyle kHeading{FontFamily::Copperplate, 24.0f, colors::blue};
const TextStyle kOption{FontFamily::Courier, 16.0f, colors::gray};
const TextStyle kSelected{FontFamily::Courier, 18.0f, colors::green, colors::black};

const char* const kEightLevels = "1 Low Orbit\n2 Moon\n3 Venus\n4 Lagrange\n5 Mars\n6 Jupiter\n"
                                 "7 Station\n8 Asteroid";

TEST(SetupScreen, PanelHeadingsAndPromptIn640x480) {
    DrawHarness h;
    h.files->addPicture("menu.jpg", 640, 480);
    h.files->addPicture("menuNew.jpg", 384, 60);
    h.view.drawChoice(1, 1);

    // The menu with "new game" highlighted underneath.
    const auto pictures = h.canvas.pictures();
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[1]->rect, (Rect{128, 119, 385, 61}));

    std::vector<Rect> rings;
    std::vector<double> greys;
    for (const auto* fill : h.canvas.ofKind(Op::FillRect)) {
        rings.push_back(fill->rect);
        greys.push_back(fill->color.r);
    }
    EXPECT_EQ(rings, (std::vector<Rect>{{130, 90, 380, 380},
                                        {131, 91, 378, 378},
                                        {132, 92, 376, 376},
                                        {133, 93, 374, 374},
                                        {134, 94, 372, 372},
                                        {135, 95, 370, 370}}));
    ASSERT_EQ(greys.size(), 6u);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(greys[i], 1 - static_cast<double>(i) / 5, 1e-12);

    const auto* title = h.canvas.findText("New Game");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->at, (Point{320 - RecordingCanvas::textSize("New Game", 36).width / 2, 415}));
    EXPECT_EQ(title->style, (TextStyle{FontFamily::Copperplate, 36.0f, colors::blue}));
    EXPECT_EQ(h.canvas.findText("Difficulty < >")->at, (Point{145, 370}));
    EXPECT_EQ(h.canvas.findText("Difficulty < >")->style, kHeading);
    EXPECT_EQ(h.canvas.findText("Level  ^ v")->at, (Point{145, 310}));
    const auto* prompt = h.canvas.findText("Spacebar to begin");
    ASSERT_NE(prompt, nullptr);
    EXPECT_EQ(prompt->style, kHeading);
    EXPECT_EQ(prompt->at.x + RecordingCanvas::textSize("Spacebar to begin", 24).width, 495.0f);
    EXPECT_EQ(prompt->at.y, 105.0f);
}

TEST(SetupScreen, HighlightsTheChosenDifficulty) {
    struct Name {
        const char* text;
        double centre;
    };
    const Name names[] = {{"Easy", 240}, {"Medium", 320}, {"Hard", 400}};
    for (int difficulty : {1, 2, 3, 0, 5}) {
        DrawHarness h;
        h.view.drawChoice(1, difficulty);
        for (int i = 0; i < 3; ++i) {
            const bool chosen = difficulty == i + 1;
            const auto* drawn = h.canvas.findText(names[i].text);
            ASSERT_NE(drawn, nullptr);
            EXPECT_EQ(drawn->style, chosen ? kSelected : kOption) << difficulty << names[i].text;
            const float width = RecordingCanvas::textSize(names[i].text, chosen ? 18 : 16).width;
            EXPECT_EQ(
                drawn->at,
                (Point{static_cast<float>(names[i].centre - static_cast<double>(width) / 2), 345}))
                << difficulty << names[i].text;
        }
    }
}

TEST(SetupScreen, ListsTheLevelsAtTwentyPointsAndHighlightsTheChosenOne) {
    struct Case {
        std::string file;
        int level;
        int lines;          // pieces of the file
        float highlightY;   // 0: no highlight
        const char* chosen; // the highlighted line
    };
    const std::string eight = kEightLevels;
    const Case cases[] = {
        {eight, 1, 8, 240 - 95 + 7 * 20 - 2, "1 Low Orbit"},
        {eight, 8, 8, 240 - 97, "8 Asteroid"},
        {eight + "\n", 8, 9, 240 - 77, "8 Asteroid"}, // the empty ninth piece takes the bottom
        {eight, 0, 8, 0, nullptr},
        {eight, 9, 8, 0, nullptr},
        {"only one", 2, 1, 0, nullptr},
    };
    for (const Case& c : cases) {
        DrawHarness h;
        h.files->textFiles["levels.txt"] = c.file;
        h.view.drawChoice(c.level, 2);

        // Every grey line of the list at its place on the fixed pitch.
        std::vector<const RecordingCanvas::Call*> list;
        const RecordingCanvas::Call* highlight = nullptr;
        for (const auto* text : h.canvas.ofKind(Op::DrawText)) {
            if (text->at.x == 210.0f)
                list.push_back(text);
            if (text->at.x == 209.0f)
                highlight = text;
        }
        std::size_t start = 0;
        for (int i = 0; i < c.lines; ++i) {
            const auto end = c.file.find('\n', start);
            const std::string line = c.file.substr(start, end - start);
            start = end + 1;
            if (line.empty())
                continue;
            ASSERT_LT(static_cast<std::size_t>(i), list.size());
            EXPECT_EQ(list[static_cast<std::size_t>(i)]->text, line);
            EXPECT_EQ(list[static_cast<std::size_t>(i)]->at.y,
                      static_cast<float>(145 + (c.lines - 1 - i) * 20))
                << line;
            EXPECT_EQ(list[static_cast<std::size_t>(i)]->style, kOption);
        }
        if (c.chosen == nullptr) {
            EXPECT_EQ(highlight, nullptr) << c.level;
            continue;
        }
        ASSERT_NE(highlight, nullptr) << c.level;
        EXPECT_EQ(highlight->text, c.chosen);
        EXPECT_EQ(highlight->at.y, c.highlightY) << c.level;
        EXPECT_EQ(highlight->style, kSelected);
        EXPECT_EQ(h.canvas.texts().back(), c.chosen); // over its grey copy
    }
}

TEST(SetupScreen, WithoutTheLevelsFileTheRestIsDrawn) {
    DrawHarness h;
    h.view.drawChoice(3, 1);
    EXPECT_EQ(h.canvas.texts(),
              (std::vector<std::string>{"New Game", "Difficulty < >", "Level  ^ v",
                                        "Spacebar to begin", "Easy", "Medium", "Hard"}));
}

} // namespace
} // namespace apsis
