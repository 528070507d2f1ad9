#include "physics/numeric.h"
#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

// An 800 x 600 view on Earth, with every picture present, the ship resting on Earth's surface and
// moving 7.5 m/s against it, half throttle, half a tank.
struct FlightScene : DrawHarness {
    FlightScene() : DrawHarness({800.0f, 600.0f}) {
        files->addEveryPicture();
        game.earth.pos = Position(1.49e11, 0.0, 0.0, 29780.0);
        game.player.pos = Position(1.49e11, 6.38e6 + 2.0, 4.5, 29780.0 - 6.0);
        game.player.acceleration = 0.2;
        game.player.throttle = 0.5;
        game.player.maxFuel = 4320.0;
        game.player.fuel = 2160.0;
        game.elapsedTime = 5 * 3600.0;
        game.timeLimit = 20 * 86400.0;
        game.timeStep = 150.0;
        view.viewTarget = game.earth;
        view.viewCenter = game.earth.pos;
    }
    std::vector<const RecordingCanvas::Call*> strokes(double red) const {
        std::vector<const RecordingCanvas::Call*> found;
        for (const auto* stroke : canvas.ofKind(Op::StrokePath))
            if (stroke->color.r == red)
                found.push_back(stroke);
        return found;
    }
};

TEST(FlightDisplay, TextRowsOnBothSidesAndTheScaleBar) {
    FlightScene s;
    s.view.viewScale = 25e6;
    s.view.initSizes();
    s.view.drawGame(s.game);
    const auto right = [](const std::string& text) {
        return 790 - RecordingCanvas::textSize(text, 12).width;
    };
    // 2160 m/s at 0.1 m/s^2 lasts 21,600 s.
    const std::pair<std::string, Point> rows[] = {
        {"Elapsed Time: <05h 00m 00s> / <20d>", {10, 578}},
        {"Time Factor: <01h 15m 00s> to 1s", {10, 566}},
        {"Speed Relative to Earth: 7.50m/s", {10, 542}},
        {"Distance to Earth: 0.0m", {10, 530}},
        {"Max Acceleration: 0.200m/s/s", {right("Max Acceleration: 0.200m/s/s"), 578}},
        {"Actual Accel: 0.100m/s/s", {right("Actual Accel: 0.100m/s/s"), 566}},
        {"Throttle:  50.0%", {right("Throttle:  50.0%"), 542}},
        {"Fuel: <06h 00m 00s>", {right("Fuel: <06h 00m 00s>"), 506}},
        {"25,000km", {(800 - RecordingCanvas::textSize("25,000km", 12).width) / 2, 20}},
    };
    for (const auto& [text, at] : rows) {
        const auto* drawn = s.canvas.findText(text);
        ASSERT_NE(drawn, nullptr) << text;
        EXPECT_EQ(drawn->at, at) << text;
    }
    EXPECT_EQ(s.strokes(colors::lightGray.r).size(), 1u); // the bar under its width

    // Without a limit the clock stands alone.
    s.canvas.clear();
    s.game.timeLimit = 0.0;
    s.game.timeStep = 1.0 / 30;
    s.view.drawGame(s.game);
    EXPECT_NE(s.canvas.findText("Elapsed Time: <05h 00m 00s>"), nullptr);
    EXPECT_NE(s.canvas.findText("Time Factor: <01s> to 1s"), nullptr);
}

TEST(FlightDisplay, GaugesFillInProportion) {
    struct Case {
        double throttle;
        double fuel;
        float throttleFill; // points
        float fuelFill;     // points; below zero for an overdrawn tank
    };
    const Case cases[] = {{1.0, 4320.0, 148.0f, 462.0f},
                          {0.25, -3.0, 37.0f, static_cast<float>(462.0 * -3.0 / 4320.0)}};
    for (const Case& c : cases) {
        FlightScene s;
        s.game.player.throttle = c.throttle;
        s.game.player.fuel = c.fuel;
        s.view.drawGame(s.game);
        EXPECT_EQ(s.canvas.filledRects(colors::blue),
                  (std::vector<Rect>{{640, 530, 150, 8}, {780, 30, 8, 464}}));
        EXPECT_EQ(s.canvas.filledRects(colors::black),
                  (std::vector<Rect>{{641, 531, 148, 6}, {781, 31, 6, 462}}));
        EXPECT_EQ(s.canvas.filledRects(colors::green),
                  (std::vector<Rect>{{641, 531, c.throttleFill, 6}, {781, 31, 6, c.fuelFill}}))
            << c.throttle << " " << c.fuel;
    }
}

TEST(FlightDisplay, ZoomIndicatorFadesInAndOutAroundTheFollowedBody) {
    // The opacity at each zoomRect; 0: not drawn.
    for (const auto& [z, opacity] :
         {std::pair{0.4, 1.0}, {0.15, 0.5}, {0.85, 0.5}, {0.1, 0.0}, {1.0, 0.0}}) {
        FlightScene s;
        s.view.zoomRect = z;
        s.view.viewCenter.x -= 1e8; // the followed body 1e8 m right of the middle, 5e7 m up
        s.view.viewCenter.y -= 5e7;
        s.view.drawGame(s.game);
        const auto outlines = s.strokes(0.25);
        ASSERT_EQ(outlines.size(), opacity > 0.0 ? 1u : 0u) << z;
        if (outlines.empty())
            continue;
        EXPECT_NEAR(outlines[0]->color.a, opacity, 1e-9) << z;
        EXPECT_EQ(
            outlines[0]->path.elements[0].rect,
            (Rect{static_cast<float>((1 - z) * 400 + 80), static_cast<float>((1 - z) * 300 + 40),
                  static_cast<float>(800 * z), static_cast<float>(600 * z)}))
            << z;
    }
}

TEST(FlightDisplay, DrawsTheBodiesInOrderWithTheirStyles) {
    struct Case {
        bool optionalBodies; // asteroid, satellite and station active
        bool accelerating;
        bool running;
        std::vector<std::size_t> shapes; // 1 a dot, 12 a cross, 3 the dart, 6 with its flame
    };
    const Case cases[] = {
        {true, true, true, {1, 1, 1, 1, 1, 1, 1, 6, 12, 12}},
        {false, true, false, {1, 1, 1, 1, 1, 1, 3}}, // paused: no flame
    };
    for (const Case& c : cases) {
        FlightScene s;
        s.view.viewScale = 1e13; // everything a symbol
        s.view.initSizes();
        s.game.moon.pos = s.view.viewCenter;
        s.game.mars.pos = s.view.viewCenter;
        s.game.asteroid.isActive = s.game.satellite.isActive = s.game.station.isActive =
            c.optionalBodies;
        s.game.player.isAccelerating = c.accelerating;
        s.game.running = c.running;
        s.view.drawGame(s.game);
        std::vector<std::size_t> shapes;
        for (const auto* fill : s.canvas.ofKind(Op::FillPath))
            shapes.push_back(fill->path.elements.size());
        EXPECT_EQ(shapes, c.shapes);
        std::vector<std::string> labels;
        for (const auto* text : s.canvas.ofKind(Op::DrawText))
            if (text->style.family == FontFamily::Label)
                labels.push_back(text->text);
        std::vector<std::string> expected = {"The Sun",  "Venus", "Earth",
                                             "The Moon", "Mars",  "Jupiter"};
        if (c.optionalBodies)
            expected.push_back("Asteroid");
        EXPECT_EQ(labels, expected);
        // The Moon's label stands below its dot, its planet's above.
        EXPECT_EQ(s.canvas.findText("The Moon")->at, (Point{402.5f, 285.5f}));
        EXPECT_EQ(s.canvas.findText("Mars")->at, (Point{402.5f, 302.5f}));
    }
}

} // namespace
} // namespace apsis
