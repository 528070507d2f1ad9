#include "control/controller.h"
#include "support/fake_resources.h"
#include "support/recording_canvas.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

// Each mode draws its own screen, with the arguments taken from the controller's state: one text
// that must be drawn last, one that must not be drawn at all.
TEST(FrameComposition, DrawsOneScreenPerModeWithItsArguments) {
    struct Case {
        MODE mode;
        int counter;
        bool countingDown;
        bool partialDone;
        std::string last;
        std::string absent;
    };
    const std::string blank(24, ' ');
    const Case cases[] = {
        {MODE_LEVEL, 0, false, false, "Five", ""},     // level 5's briefing
        {MODE_CHOICE, 0, false, false, "3 Venus", ""}, // the chosen line, again on top
        {MODE_PLAY, 0, true, true, "Maintain orbit for <59s>", "Partial Objective Accomplished"},
        {MODE_PLAY, 0, false, true, "Partial Objective Accomplished", "Maintain orbit for <59s>"},
        {MODE_PLAY, 0, false, false, "Tab to Restart Level\nEscape to Abort Game",
         "Partial Objective Accomplished"},
        {MODE_COLLISION, 0, false, false, "Collision at 0.00m/s", "Elapsed Time: <00s>"},
        // t = 9.95: every value shown.
        {MODE_LEVEL_COMPLETE, 1, false, false,
         blank + "\nFuel Remaining:  25.0%\nTime Remaining:  n/a  ", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.last);
        ScopedFakeResources files;
        files->textFiles["levels.txt"] = "1 Low Orbit\n2 Moon\n3 Venus\n4 Lagrange";
        files->textFiles["level5.txt"] = "Five";
        RecordingCanvas canvas({800.0f, 600.0f});
        CanvasFocus focus(canvas);
        Controller controller;
        controller.mode = c.mode;
        controller.counter = c.counter;
        controller.level = c.mode == MODE_LEVEL ? 5 : 3;
        controller.game.difficulty = 2;
        controller.isCountingDown = c.countingDown;
        controller.isPartialObjectiveDone = c.partialDone;
        controller.countDownTime = 59.0;
        controller.game.player.fuel = 1080.0;
        controller.game.player.maxFuel = 4320.0;
        controller.game.timeLimit = 0.0;
        controller.drawRect();
        EXPECT_EQ(controller.drawView.viewWidth, 800.0); // sized from this redraw's canvas
        ASSERT_FALSE(canvas.texts().empty());
        EXPECT_EQ(canvas.texts().back(), c.last);
        EXPECT_EQ(canvas.findText(c.absent), nullptr);
    }
}

} // namespace
} // namespace apsis
