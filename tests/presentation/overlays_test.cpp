#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>

namespace apsis {
namespace {

using RC = RecordingCanvas;

const std::string kHint = "Tab to Restart Level\nEscape to Abort Game";

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
        {0.0, 5e5, 4e5, false, true, true},
        {100.0, 1e12, 0.0, true, false, false},
        {100.0, 4e5, 4e5, true, false, false},
        {100.0, 4e5 + 1, 4e5, true, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.fuel << " " << c.elapsed << " of " << c.limit);
        DrawHarness h;
        h.game.player.fuel = c.fuel;
        h.game.elapsedTime = c.elapsed;
        h.game.timeLimit = c.limit;
        h.game.running = c.running;
        h.view.drawPlay(h.game);
        ASSERT_NE(h.canvas.findText("Elapsed Time: ", true), nullptr); // the flight underneath
        const Point none{-1, -1};
        const auto at = [&](const std::string& text) {
            const auto* drawn = h.canvas.findText(text);
            return drawn != nullptr ? drawn->at : none;
        };
        EXPECT_EQ(at(" Out Of Fuel "),
                  c.fuelBanner ? RC::centred(" Out Of Fuel ", 14, 320, 320) : none);
        EXPECT_EQ(at(" Time Limit Exceeded "),
                  c.timeBanner ? RC::centred(" Time Limit Exceeded ", 14, 320, 300) : none);
        EXPECT_EQ(at(" Spacebar to Continue "),
                  c.running ? none : RC::centred(" Spacebar to Continue ", 24, 320, 288, true));
        EXPECT_EQ(at(kHint), c.running ? none : RC::centred(kHint, 13, 320, 192, true));
    }
}

} // namespace
} // namespace apsis
