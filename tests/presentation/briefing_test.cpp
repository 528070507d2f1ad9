#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>

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
        float side;       // of the text, points
        const char* title;
        Rect outer; // the panel's outermost ring
    };
    const Case cases[] = {
        {3, "Go to Mars\nand\nland\non\nit.", 78, "Level 3", {266, 186, 108, 148}},
        {0, nullptr, 0, "Practice Level", {305, 225, 30, 70}}, // shrinks round the middle
    };
    for (const Case& c : cases) {
        DrawHarness h;
        if (c.text != nullptr)
            h.files->textFiles["level3.txt"] = c.text;
        h.view.drawLevel(c.level, h.game);
        EXPECT_TRUE(drewTheScene(h.canvas));
        EXPECT_EQ(h.files->requests.front(), "level" + std::to_string(c.level) + ".txt");
        // The panel's rings grey from white to black over five points.
        EXPECT_EQ(h.canvas.filledRects(colors::white).back(), c.outer);
        const Rect& o = c.outer;
        EXPECT_EQ(h.canvas.filledRects(colors::black).back(),
                  (Rect{o.x + 5, o.y + 5, o.width - 10, o.height - 10}));
        const auto* body = h.canvas.findText(c.text ? c.text : "");
        ASSERT_NE(body, nullptr);
        EXPECT_EQ(body->op, Op::TextInRect);
        EXPECT_EQ(body->rect, (Rect{320 - c.side / 2, 240 - c.side / 2, c.side, c.side}));
        const auto* title = h.canvas.findText(c.title);
        ASSERT_NE(title, nullptr);
        EXPECT_EQ(title->at, RecordingCanvas::centred(c.title, 36, 320, 250 + c.side / 2));
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
        {0.5, 432000.0, ""},          {1.0, 432000.0, head + "\nTime Remaining: "},
        {3.0, 432000.0, fuel},        {3.05, 432000.0, fuel + " 75.0%"},
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
            EXPECT_EQ(h.canvas.calls.back().rect, (Rect{0, 0, 640, 480}));
            EXPECT_EQ(h.canvas.calls.back().color, (Color{0.0, 0.0, 0.0, c.t}));
            continue;
        }
        ASSERT_EQ(h.canvas.calls.size(), 2u) << c.t;
        const auto* body = h.canvas.findText(c.body);
        ASSERT_NE(body, nullptr) << c.t << " " << c.timeLimit;
        const float height = RecordingCanvas::textSize(c.body, 14).height;
        EXPECT_EQ(body->at, RecordingCanvas::centred(c.body, 14, 320, 240, true));
        EXPECT_EQ(h.canvas.findText("Level Complete")->at,
                  RecordingCanvas::centred("Level Complete", 24, 320, 290 + height / 2));
    }

    // Fading to white covers the scene with growing white.
    DrawHarness h;
    h.view.drawFadeToWhite(0.125, h.game);
    EXPECT_TRUE(drewTheScene(h.canvas));
    EXPECT_EQ(h.canvas.calls.back().rect, (Rect{0, 0, 640, 480}));
    EXPECT_EQ(h.canvas.calls.back().color, (Color{1.0, 1.0, 1.0, 0.875}));
}

} // namespace
} // namespace apsis
