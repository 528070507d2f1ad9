#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

// Whether the flight scene was drawn underneath: its first read-out.
bool drewTheScene(const RecordingCanvas& canvas) {
    return canvas.findText("Elapsed Time: ", true) != nullptr;
}

TEST(Briefing, PanelAroundTheTextAndTitleAbove) {
    struct Case {
        int level;
        const char* text; // nullptr: no briefing file
        Size size;
        const char* title;
        Rect outer; // the panel's outermost ring
    };
    const Case cases[] = {
        {3, "Reach a low orbit.\nHold it.", {300, 100}, "Level 3", {155, 175, 330, 170}},
        {0, nullptr, {0, 0}, "Practice Level", {305, 225, 30, 70}}, // shrinks round the middle
    };
    for (const Case& c : cases) {
        DrawHarness h;
        if (c.text != nullptr) {
            h.files->textFiles["level3.txt"] = c.text;
            h.canvas.textSizes[c.text] = c.size;
        }
        h.view.drawLevel(c.level, h.game);
        EXPECT_TRUE(drewTheScene(h.canvas));
        EXPECT_EQ(h.files->requests.front(), "level" + std::to_string(c.level) + ".txt");
        const auto white = h.canvas.filledRects(colors::white);
        ASSERT_FALSE(white.empty());
        EXPECT_EQ(white.back(), c.outer);
        const Rect inner = h.canvas.filledRects({0.0, 0.0, 0.0, 1.0}).back();
        EXPECT_EQ(inner,
                  (Rect{c.outer.x + 5, c.outer.y + 5, c.outer.width - 10, c.outer.height - 10}));
        const auto* body = h.canvas.findText(c.text ? c.text : "");
        ASSERT_NE(body, nullptr);
        EXPECT_EQ(body->op, Op::TextInRect);
        EXPECT_EQ(body->rect, (Rect{320 - c.size.width / 2, 240 - c.size.height / 2, c.size.width,
                                    c.size.height}));
        const auto* title = h.canvas.findText(c.title);
        ASSERT_NE(title, nullptr);
        EXPECT_EQ(title->at, RecordingCanvas::centred(c.title, 36, 320, 250 + c.size.height / 2));
    }
}

TEST(LevelComplete, FadesToBlackThenRevealsFuelAndTime) {
    const std::string head = std::string(24, ' ') + "\nFuel Remaining: ";
    const std::string fuel = head + " 25.0%\nTime Remaining: ";
    struct Case {
        double t;
        double timeLimit;
        std::string body; // empty: the darkening scene
    };
    const Case cases[] = {
        {0.5, 432000.0, ""},
        {1.0, 432000.0, head + "\nTime Remaining: "},
        {2.05, 432000.0, fuel},
        {3.0, 432000.0, fuel},
        {3.05, 432000.0, fuel + " 75.0%"},
        {3.05, 0.1, fuel + " n/a  "},
    };
    for (const Case& c : cases) {
        DrawHarness h;
        h.game.player.fuel = 1080.0;
        h.game.player.maxFuel = 4320.0;
        h.game.timeLimit = c.timeLimit;
        h.game.elapsedTime = 108000.0;
        h.view.drawLevelComplete(c.t, h.game);
        EXPECT_EQ(drewTheScene(h.canvas), c.body.empty()) << c.t;
        if (c.body.empty()) {
            const auto* veil = h.canvas.drawing().back();
            EXPECT_EQ(veil->rect, (Rect{0, 0, 640, 480}));
            EXPECT_EQ(veil->color, (Color{0.0, 0.0, 0.0, c.t}));
            continue;
        }
        ASSERT_EQ(h.canvas.drawing().size(), 2u) << c.t;
        const auto* body = h.canvas.findText(c.body);
        ASSERT_NE(body, nullptr) << c.t << " " << c.timeLimit;
        const float height = RecordingCanvas::textSize(c.body, 14).height;
        EXPECT_EQ(body->at, RecordingCanvas::centred(c.body, 14, 320, 240, true));
        const auto* title = h.canvas.findText("Level Complete");
        ASSERT_NE(title, nullptr);
        EXPECT_EQ(title->at, RecordingCanvas::centred("Level Complete", 24, 320, 290 + height / 2));
    }
}

TEST(FadeToWhite, CoversTheSceneWithGrowingWhite) {
    for (const double t : {0.125}) {
        DrawHarness h;
        h.view.drawFadeToWhite(t, h.game);
        EXPECT_TRUE(drewTheScene(h.canvas));
        const auto* veil = h.canvas.drawing().back();
        EXPECT_EQ(veil->rect, (Rect{0, 0, 640, 480}));
        EXPECT_EQ(veil->color, (Color{1.0, 1.0, 1.0, 1 - t}));
    }
}

} // namespace
} // namespace apsis
