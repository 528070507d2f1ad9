#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

const TextStyle kBanner{FontFamily::Copperplate, 14.0f, colors::black, colors::red};

// A 640 x 480 view on a paused world with fuel and no limit.
struct OverlayScene : DrawHarness {
    OverlayScene() {
        game.player.fuel = 100.0;
        game.timeLimit = 0.0;
        game.running = false;
    }
};

// Where the recording canvas puts a text centred on x with its box bottom at y.
Point centredAt(const std::string& text, float size, double x, double y) {
    const Size s = RecordingCanvas::textSize(text, size);
    return {static_cast<float>(x - static_cast<double>(s.width) / 2), static_cast<float>(y)};
}

// ... and centred on x with its middle at y.
Point middleAt(const std::string& text, float size, double x, double y) {
    const Size s = RecordingCanvas::textSize(text, size);
    return {static_cast<float>(x - static_cast<double>(s.width) / 2),
            static_cast<float>(y - static_cast<double>(s.height) / 2)};
}

TEST(Overlays, BannersAndPausePrompt) {
    struct Case {
        double fuel;
        double elapsed;
        double limit;
        bool running;
        bool fuelBanner;
        bool timeBanner;
    };
    const Case cases[] = {
        {100.0, 0.0, 0.0, false, false, false},  // paused, all well
        {0.0, 5e5, 4e5, false, true, true},      // both warnings, paused
        {-0.5, 5e5, 4e5, true, true, true},      // both warnings, running
        {100.0, 1e12, 0.0, true, false, false},  // no limit, however long
        {100.0, 4e5, 4e5, true, false, false},   // at the limit, not past it
        {100.0, 4e5 + 1, 4e5, true, false, true} // past it
    };
    for (const Case& c : cases) {
        OverlayScene s;
        s.game.player.fuel = c.fuel;
        s.game.elapsedTime = c.elapsed;
        s.game.timeLimit = c.limit;
        s.game.running = c.running;
        s.view.drawPlay(s.game);

        // The flight display underneath comes first.
        ASSERT_NE(s.canvas.findTextStartingWith("Elapsed Time: "), nullptr);
        const auto* fuel = s.canvas.findText(" Out Of Fuel ");
        const auto* time = s.canvas.findText(" Time Limit Exceeded ");
        EXPECT_EQ(fuel != nullptr, c.fuelBanner) << c.fuel;
        EXPECT_EQ(time != nullptr, c.timeBanner) << c.elapsed << " of " << c.limit;
        if (fuel) {
            EXPECT_EQ(fuel->style, kBanner);
            EXPECT_EQ(fuel->at, centredAt(" Out Of Fuel ", 14, 320, 320));
        }
        if (time) {
            EXPECT_EQ(time->style, kBanner);
            EXPECT_EQ(time->at, centredAt(" Time Limit Exceeded ", 14, 320, 300));
        }

        const auto* prompt = s.canvas.findText(" Spacebar to Continue ");
        const std::string hint = "Tab to Restart Level\nEscape to Abort Game";
        const auto* hints = s.canvas.findText(hint);
        EXPECT_EQ(prompt == nullptr, c.running);
        EXPECT_EQ(hints == nullptr, c.running);
        if (prompt) {
            EXPECT_EQ(prompt->style, (TextStyle{FontFamily::Copperplate, 24.0f, colors::white,
                                                Color{0.2, 0.2, 0.2, 1.0}}));
            EXPECT_EQ(prompt->at, middleAt(" Spacebar to Continue ", 24, 320, 288));
            EXPECT_EQ(hints->style, (TextStyle{FontFamily::Courier, 13.0f, colors::lightGray}));
            EXPECT_EQ(hints->at, middleAt(hint, 13, 320, 192));
        }
    }
}

TEST(Overlays, ObjectiveMessagesStandOverTheFlight) {
    {
        OverlayScene s;
        s.game.running = true;
        s.view.drawFlag(s.game);
        const auto* flag = s.canvas.findText("Partial Objective Accomplished");
        ASSERT_NE(flag, nullptr);
        EXPECT_EQ(flag->at, (Point{20, 40}));
        EXPECT_EQ(flag->style, (TextStyle{FontFamily::Courier, 12.0f, colors::blue}));
        EXPECT_EQ(s.canvas.texts().back(), "Partial Objective Accomplished");
    }
    struct Case {
        double t;
        const char* text;
    };
    const Case cases[] = {{86399.5, "Maintain orbit for <23h 59m 59s>"},
                          {59.0, "Maintain orbit for <59s>"},
                          {-3.5, "Maintain orbit for <-03s>"}};
    for (const Case& c : cases) {
        OverlayScene s;
        s.view.drawCountDown(c.t, s.game);
        const auto* message = s.canvas.findText(c.text);
        ASSERT_NE(message, nullptr) << c.text;
        EXPECT_EQ(message->at, centredAt(c.text, 14, 320, 360));
        EXPECT_EQ(message->style, (TextStyle{FontFamily::Courier, 14.0f, colors::yellow}));
        // Over the paused flight with its prompt.
        EXPECT_NE(s.canvas.findText(" Spacebar to Continue "), nullptr);
        EXPECT_EQ(s.canvas.texts().back(), c.text);
    }
}

TEST(Overlays, CollisionShowsOnlyTheImpactSpeed) {
    OverlayScene s;
    s.game.player.pos = Position(0.0, 0.0, 4.5, 6.0);
    s.view.viewTarget.pos = Position(1e6, 0.0, 0.0, 0.0);
    s.view.drawCollisionText(s.game);
    ASSERT_EQ(s.canvas.drawing().size(), 1u);
    const auto* message = s.canvas.findText("Collision at 7.50m/s");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->at, centredAt("Collision at 7.50m/s", 18, 320, 240));
    EXPECT_EQ(message->style, (TextStyle{FontFamily::Copperplate, 18.0f, colors::red}));
}

} // namespace
} // namespace apsis
