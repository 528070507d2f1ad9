#include "control/controller.h"
#include "support/fake_resources.h"
#include "support/recording_canvas.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

// Each mode draws its own screen with the arguments taken from the controller's state.
TEST(FrameComposition, DrawsOneScreenPerModeWithItsArguments) {
    struct Case {
        const char* what;
        std::function<void(Controller&)> set;
        std::function<void(const RecordingCanvas&, const FakeResources&)> check;
    };
    const auto asked = [](const FakeResources& files, const std::string& file) {
        return std::find(files.requests.begin(), files.requests.end(), file) !=
               files.requests.end();
    };
    const Case cases[] = {
        {"intro", [](Controller& c) { c.counter = 5; },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             ASSERT_EQ(canvas.filledRects(colors::green).size(), 1u);
             EXPECT_FLOAT_EQ(canvas.filledRects(colors::green)[0].width, 5.0f / 9 * 298);
         }},
        {"menu",
         [](Controller& c) {
             c.mode = MODE_MENU;
             c.menuChoice = 3;
         },
         [](const RecordingCanvas&, const FakeResources& files) {
             EXPECT_EQ(files.requests, (std::vector<std::string>{"menu.jpg", "menuPractice.jpg"}));
         }},
        {"briefing",
         [](Controller& c) {
             c.mode = MODE_LEVEL;
             c.level = 5;
         },
         [&](const RecordingCanvas& canvas, const FakeResources& files) {
             EXPECT_NE(canvas.findText("Level 5"), nullptr);
             EXPECT_TRUE(asked(files, "level5.txt"));
         }},
        {"set-up",
         [](Controller& c) {
             c.mode = MODE_CHOICE;
             c.level = 3;
             c.game.difficulty = 2;
         },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_EQ(canvas.findText("Medium")->style.color, colors::green);
             EXPECT_EQ(canvas.texts().back(), "3 Venus"); // the chosen line, again on top
         }},
        {"countdown before the flag",
         [](Controller& c) {
             c.mode = MODE_PLAY;
             c.isCountingDown = c.isPartialObjectiveDone = true;
             c.countDownTime = 59.0;
         },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_NE(canvas.findText("Maintain orbit for <59s>"), nullptr);
             EXPECT_EQ(canvas.findText("Partial Objective Accomplished"), nullptr);
         }},
        {"flag",
         [](Controller& c) {
             c.mode = MODE_PLAY;
             c.isPartialObjectiveDone = true;
         },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_NE(canvas.findText("Partial Objective Accomplished"), nullptr);
             EXPECT_EQ(canvas.findText("Maintain orbit", true), nullptr);
         }},
        {"flight", [](Controller& c) { c.mode = MODE_PLAY; },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_NE(canvas.findText("Elapsed Time: ", true), nullptr);
             EXPECT_EQ(canvas.findText("Partial Objective Accomplished"), nullptr);
             EXPECT_EQ(canvas.findText("Maintain orbit", true), nullptr);
         }},
        {"collision fade",
         [](Controller& c) {
             c.mode = MODE_COLLISION_FADE;
             c.counter = 3;
         },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_EQ(canvas.drawing().back()->color, (Color{1.0, 1.0, 1.0, 1 - 0.375}));
         }},
        {"collision", [](Controller& c) { c.mode = MODE_COLLISION; },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_EQ(canvas.texts(), (std::vector<std::string>{"Collision at 0.00m/s"}));
         }},
        {"level complete, last frame",
         [](Controller& c) {
             c.mode = MODE_LEVEL_COMPLETE;
             c.counter = 1; // t = 9.95: every value shown
             c.game.player.fuel = 1080.0;
             c.game.player.maxFuel = 4320.0;
             c.game.timeLimit = 0.0;
         },
         [](const RecordingCanvas& canvas, const FakeResources&) {
             EXPECT_EQ(canvas.texts().back(),
                       std::string(24, ' ') + "\nFuel Remaining:  25.0%\nTime Remaining:  n/a  ");
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ScopedFakeResources files;
        files->textFiles["levels.txt"] = "1 Low Orbit\n2 Moon\n3 Venus\n4 Lagrange";
        RecordingCanvas canvas({800.0f, 600.0f});
        CanvasFocus focus(canvas);
        Controller controller;
        c.set(controller);
        controller.drawRect();
        EXPECT_EQ(controller.drawView.viewWidth, 800.0); // sized from this redraw's canvas
        c.check(canvas, *files);
    }
}

} // namespace
} // namespace apsis
