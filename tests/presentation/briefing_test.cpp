#include "presentation/format.h"
#include "support/draw_harness.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

const TextStyle kBriefingText{FontFamily::Times, 13.0f, colors::white};
const TextStyle kCompleteBody{FontFamily::Courier, 14.0f, colors::green};

// Whether the flight display was drawn: its first read-out.
bool drewTheScene(const RecordingCanvas& canvas) {
    return canvas.findTextStartingWith("Elapsed Time: ") != nullptr;
}

TEST(Briefing, PanelAroundThe300x100Text) {
    DrawHarness h;
    const std::string text = "Reach a low orbit.\nHold it.";
    h.files->textFiles["level3.txt"] = text;
    h.canvas.textSizes[text] = {300.0f, 100.0f};
    h.view.drawLevel(3, h.game);

    EXPECT_TRUE(drewTheScene(h.canvas));
    std::vector<Rect> rings;
    for (const auto* fill : h.canvas.ofKind(Op::FillRect))
        if (fill->color.r == fill->color.g && fill->color.g == fill->color.b &&
            fill->rect.x >= 155.0f && fill->rect.x <= 160.0f)
            rings.push_back(fill->rect);
    EXPECT_EQ(rings, (std::vector<Rect>{{155, 175, 330, 170},
                                        {156, 176, 328, 168},
                                        {157, 177, 326, 166},
                                        {158, 178, 324, 164},
                                        {159, 179, 322, 162},
                                        {160, 180, 320, 160}}));

    const auto* body = h.canvas.findText(text);
    ASSERT_NE(body, nullptr);
    EXPECT_EQ(body->op, Op::DrawTextInRect);
    EXPECT_EQ(body->rect, (Rect{170, 190, 300, 100}));
    EXPECT_EQ(body->style, kBriefingText);

    const auto* title = h.canvas.findText("Level 3");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->at, (Point{320 - RecordingCanvas::textSize("Level 3", 36).width / 2, 300}));
    EXPECT_EQ(title->style, (TextStyle{FontFamily::Copperplate, 36.0f, colors::blue}));
    EXPECT_NE(std::find(h.files->requests.begin(), h.files->requests.end(), "level3.txt"),
              h.files->requests.end());
}

TEST(Briefing, PracticeTitleAndAMissingText) {
    DrawHarness h;
    h.view.drawLevel(0, h.game);
    const auto* title = h.canvas.findText("Practice Level");
    ASSERT_NE(title, nullptr);
    // No briefing: the panel shrinks to 30 x 70 round the middle, the title 10 points above it.
    EXPECT_EQ(title->at.y, 250.0f);
    EXPECT_EQ(h.canvas.filledRects({1.0, 1.0, 1.0, 1.0}).back(), (Rect{305, 225, 30, 70}));
    EXPECT_EQ(h.canvas.findText("")->rect, (Rect{320, 240, 0, 0}));
    EXPECT_NE(std::find(h.files->requests.begin(), h.files->requests.end(), "level0.txt"),
              h.files->requests.end());
}

TEST(LevelComplete, FadesToBlackThenRevealsFuelAndTime) {
    const std::string blank(24, ' ');
    struct Case {
        double t;
        double timeLimit;
        bool scene;
        const char* body; // nullptr: no text at all
    };
    const std::string labels = blank + "\nFuel Remaining: \nTime Remaining: ";
    const std::string withFuel = blank + "\nFuel Remaining:  25.0%\nTime Remaining: ";
    const std::string withTime = blank + "\nFuel Remaining:  25.0%\nTime Remaining:  75.0%";
    const std::string noLimit = blank + "\nFuel Remaining:  25.0%\nTime Remaining:  n/a  ";
    const Case cases[] = {
        {0.0, 432000.0, true, nullptr},
        {0.5, 432000.0, true, nullptr},
        {1.0, 432000.0, false, labels.c_str()},
        {2.0, 432000.0, false, labels.c_str()},
        {2.05, 432000.0, false, withFuel.c_str()},
        {3.0, 432000.0, false, withFuel.c_str()},
        {3.05, 432000.0, false, withTime.c_str()},
        {9.95, 432000.0, false, withTime.c_str()},
        {3.05, 0.0, false, noLimit.c_str()},
        {3.05, 0.1, false, noLimit.c_str()},
    };
    for (const Case& c : cases) {
        DrawHarness h;
        h.game.player.fuel = 1080.0;
        h.game.player.maxFuel = 4320.0;
        h.game.timeLimit = c.timeLimit;
        h.game.elapsedTime = 108000.0;
        h.view.drawLevelComplete(c.t, h.game);

        EXPECT_EQ(drewTheScene(h.canvas), c.scene) << c.t;
        if (c.scene) {
            const auto drawn = h.canvas.drawing();
            ASSERT_EQ(drawn.back()->op, Op::FillRect);
            EXPECT_EQ(drawn.back()->rect, (Rect{0, 0, 640, 480}));
            EXPECT_EQ(drawn.back()->color, (Color{0.0, 0.0, 0.0, c.t}));
            continue;
        }
        ASSERT_EQ(h.canvas.drawing().size(), 2u) << c.t;
        const Size size = RecordingCanvas::textSize(c.body, 14);
        const auto* body = h.canvas.findText(c.body);
        ASSERT_NE(body, nullptr) << c.t << " " << c.timeLimit;
        EXPECT_EQ(body->style, kCompleteBody);
        EXPECT_EQ(body->at, (Point{320 - size.width / 2, 240 - size.height / 2}));
        const auto* title = h.canvas.findText("Level Complete");
        ASSERT_NE(title, nullptr);
        EXPECT_EQ(title->style, (TextStyle{FontFamily::Copperplate, 24.0f, colors::green}));
        EXPECT_EQ(title->at, (Point{320 - RecordingCanvas::textSize("Level Complete", 24).width / 2,
                                    240 + size.height / 2 + 50}));
    }
}

TEST(FadeToWhite, CoversTheSceneWithGrowingWhite) {
    for (double t : {1.0, 0.5, 0.125}) {
        DrawHarness h;
        h.view.drawFadeToWhite(t, h.game);
        EXPECT_TRUE(drewTheScene(h.canvas));
        const auto drawn = h.canvas.drawing();
        ASSERT_EQ(drawn.back()->op, Op::FillRect);
        EXPECT_EQ(drawn.back()->rect, (Rect{0, 0, 640, 480}));
        EXPECT_EQ(drawn.back()->color, (Color{1.0, 1.0, 1.0, 1 - t}));
    }
}

} // namespace
} // namespace apsis
