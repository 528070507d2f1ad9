#include "physics/numeric.h"
#include "support/draw_harness.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace apsis {
namespace {

using Op = RecordingCanvas::Op;

const TextStyle kDisplay{FontFamily::Courier, 12.0f, colors::green};

// An 800 x 600 view on Earth, with every sheet present, the ship resting on Earth's surface and
// moving 7.5 m/s against it, half throttle, half a tank.
struct FlightScene : DrawHarness {
    FlightScene() : DrawHarness({800.0f, 600.0f}) {
        for (const char* sheet :
             {"sun.jpg", "venus.jpg", "earth.jpg", "moon.jpg", "mars.jpg", "jupiter.jpg",
              "satellite.gif", "station.gif", "asteroid.jpg", "ship.gif"})
            files->addPicture(sheet, 512, 512);
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
};

float rightAligned(const std::string& text) {
    return static_cast<float>(800 - static_cast<double>(RecordingCanvas::textSize(text, 12).width) -
                              10);
}

TEST(FlightDisplay, TextRowsOnBothSides) {
    FlightScene s;
    s.view.drawGame(s.game);

    struct Row {
        std::string text;
        Point at;
    };
    const std::string maxAccel = "Max Acceleration: 0.200m/s/s";
    const std::string actual = "Actual Accel: 0.100m/s/s";
    const std::string throttle = "Throttle:  50.0%";
    // 2160 m/s at 0.1 m/s^2 lasts 21,600 s.
    const std::string fuel = "Fuel: <06h 00m 00s>";
    const Row rows[] = {
        {"Elapsed Time: <05h 00m 00s> / <20d>", {10, 578}},
        {"Time Factor: <01h 15m 00s> to 1s", {10, 566}},
        {"Speed Relative to Earth: 7.50m/s", {10, 542}},
        {"Distance to Earth: 0.0m", {10, 530}},
        {maxAccel, {rightAligned(maxAccel), 578}},
        {actual, {rightAligned(actual), 566}},
        {throttle, {rightAligned(throttle), 542}},
        {fuel, {rightAligned(fuel), 506}},
    };
    for (const Row& row : rows) {
        const auto* drawn = s.canvas.findText(row.text);
        ASSERT_NE(drawn, nullptr) << row.text;
        EXPECT_EQ(drawn->at, row.at) << row.text;
        EXPECT_EQ(drawn->style, kDisplay) << row.text;
    }
}

TEST(FlightDisplay, ElapsedTimeAndTimeFactorVariants) {
    struct Case {
        double timeLimit;
        double timeStep;
        const char* elapsed;
        const char* factor;
    };
    const Case cases[] = {
        {0.0, 1.0 / 30, "Elapsed Time: <05h 00m 00s>", "Time Factor: <01s> to 1s"},
        {432000.0, 1051200.0, "Elapsed Time: <05h 00m 00s> / <05d>",
         "Time Factor: <1y 00d 00h 00m 00s> to 1s"},
    };
    for (const Case& c : cases) {
        FlightScene s;
        s.game.timeLimit = c.timeLimit;
        s.game.timeStep = c.timeStep;
        s.view.drawGame(s.game);
        EXPECT_NE(s.canvas.findText(c.elapsed), nullptr) << c.elapsed;
        EXPECT_NE(s.canvas.findText(c.factor), nullptr) << c.factor;
    }
}

TEST(FlightDisplay, GaugesFillInProportion) {
    struct Case {
        double throttle;
        double fuel;
        float throttleFill; // points
        float fuelFill;     // points; below zero for an overdrawn tank
    };
    const Case cases[] = {
        {1.0, 4320.0, 148.0f, 462.0f},
        {0.5, 2160.0, 74.0f, 231.0f},
        {0.001, 0.0, 0.148f, 0.0f},
        {0.25, -3.0, 37.0f, static_cast<float>(462.0 * -3.0 / 4320.0)}, // overdrawn
    };
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

TEST(FlightDisplay, ScaleBarSpansTheViewAndStatesItsWidth) {
    struct Case {
        double viewScale;
        const char* label;
    };
    const Case cases[] = {
        {25e6, "25,000km"}, {1e9, "1,000,000km"}, {2e9, "0.013AU"}, {200.0, "200m"}};
    for (const Case& c : cases) {
        FlightScene s;
        s.view.viewScale = c.viewScale;
        s.view.initSizes();
        s.view.drawGame(s.game);

        const auto* label = s.canvas.findText(c.label);
        ASSERT_NE(label, nullptr) << c.label;
        const float width = RecordingCanvas::textSize(c.label, 12).width;
        EXPECT_EQ(label->at, (Point{(800 - width) / 2, 20})) << c.label;
        EXPECT_EQ(label->style, (TextStyle{FontFamily::Courier, 12.0f, colors::lightGray}));

        std::vector<const RecordingCanvas::Call*> bars;
        for (const auto* stroke : s.canvas.ofKind(Op::StrokePath))
            if (stroke->color == colors::lightGray)
                bars.push_back(stroke);
        ASSERT_EQ(bars.size(), 1u);
        using K = Path::Kind;
        const std::vector<Path::Element> expected = {
            {K::MoveTo, {50, 20, 0, 0}},  {K::LineTo, {40, 15, 0, 0}},
            {K::MoveTo, {50, 10, 0, 0}},  {K::LineTo, {40, 15, 0, 0}},
            {K::LineTo, {760, 15, 0, 0}}, {K::LineTo, {750, 10, 0, 0}},
            {K::MoveTo, {760, 15, 0, 0}}, {K::LineTo, {750, 20, 0, 0}},
        };
        EXPECT_EQ(bars[0]->path.elements, expected);
    }
}

TEST(FlightDisplay, ZoomIndicatorFadesInAndOut) {
    struct Case {
        double zoomRect;
        double opacity; // 0: not drawn
    };
    const Case cases[] = {{0.4, 1.0}, {0.15, 0.5}, {0.85, 0.5}, {0.1, 0.0},
                          {0.0, 0.0}, {0.2, 1.0},  {0.7, 1.0},  {1.0, 0.0}};
    for (const Case& c : cases) {
        FlightScene s;
        s.view.zoomRect = c.zoomRect;
        // The followed body a little off the middle: 1e8 m right, 5e7 m up.
        s.view.viewCenter.x -= 1e8;
        s.view.viewCenter.y -= 5e7;
        s.view.drawGame(s.game);

        std::vector<const RecordingCanvas::Call*> outlines;
        for (const auto* stroke : s.canvas.ofKind(Op::StrokePath))
            if (stroke->color.r == 0.25)
                outlines.push_back(stroke);
        if (c.opacity == 0.0) {
            EXPECT_TRUE(outlines.empty()) << c.zoomRect;
            continue;
        }
        ASSERT_EQ(outlines.size(), 1u) << c.zoomRect;
        EXPECT_NEAR(outlines[0]->color.a, c.opacity, 1e-9) << c.zoomRect;
        EXPECT_EQ(outlines[0]->color.g, 0.25);
        EXPECT_EQ(outlines[0]->color.b, 0.25);
        const double z = c.zoomRect;
        const Rect expected{static_cast<float>((1 - z) * 400 + 80),
                            static_cast<float>((1 - z) * 300 + 40), static_cast<float>(800 * z),
                            static_cast<float>(600 * z)};
        ASSERT_EQ(outlines[0]->path.elements.size(), 1u);
        EXPECT_EQ(outlines[0]->path.elements[0].kind, Path::Kind::Rectangle);
        EXPECT_EQ(outlines[0]->path.elements[0].rect, expected) << c.zoomRect;
    }
}

// The shapes of the body symbols, in drawing order: 1 for a dot, 12 for a cross, 3 or 6 for the
// ship's dart; and the labels in order.
struct Symbols {
    std::vector<std::size_t> shapes;
    std::vector<std::string> labels;
};

Symbols symbolsOf(const RecordingCanvas& canvas) {
    Symbols found;
    for (const auto* fill : canvas.ofKind(Op::FillPath))
        found.shapes.push_back(fill->path.elements.size());
    for (const auto* text : canvas.ofKind(Op::DrawText))
        if (text->style.family == FontFamily::Label)
            found.labels.push_back(text->text);
    return found;
}

TEST(FlightDisplay, DrawsTheBodiesInOrderWithTheirStyles) {
    struct Case {
        bool optionalBodies; // asteroid, satellite and station active
        bool accelerating;
        bool running;
        Symbols expected;
    };
    const std::vector<std::string> planets = {"The Sun",  "Venus", "Earth",
                                              "The Moon", "Mars",  "Jupiter"};
    std::vector<std::string> withAsteroid = planets;
    withAsteroid.push_back("Asteroid");
    const Case cases[] = {
        {true, false, true, {{1, 1, 1, 1, 1, 1, 1, 3, 12, 12}, withAsteroid}},
        {true, true, true, {{1, 1, 1, 1, 1, 1, 1, 6, 12, 12}, withAsteroid}},
        {false, true, false, {{1, 1, 1, 1, 1, 1, 3}, planets}}, // paused: no flame
    };
    for (const Case& c : cases) {
        FlightScene s;
        s.view.viewScale = 1e13; // everything a symbol
        s.view.initSizes();
        s.game.asteroid.isActive = c.optionalBodies;
        s.game.satellite.isActive = c.optionalBodies;
        s.game.station.isActive = c.optionalBodies;
        s.game.player.isAccelerating = c.accelerating;
        s.game.running = c.running;
        s.view.drawGame(s.game);
        const Symbols got = symbolsOf(s.canvas);
        EXPECT_EQ(got.shapes, c.expected.shapes);
        EXPECT_EQ(got.labels, c.expected.labels);
    }
}

TEST(FlightDisplay, TheMoonsLabelStandsBelowItsDot) {
    FlightScene s;
    s.view.viewScale = 1e13;
    s.view.initSizes();
    s.game.moon.pos = s.view.viewCenter;
    s.game.mars.pos = s.view.viewCenter;
    s.view.drawGame(s.game);
    ASSERT_NE(s.canvas.findText("The Moon"), nullptr);
    ASSERT_NE(s.canvas.findText("Mars"), nullptr);
    EXPECT_EQ(s.canvas.findText("The Moon")->at, (Point{402.5f, 285.5f}));
    EXPECT_EQ(s.canvas.findText("Mars")->at, (Point{402.5f, 302.5f}));
}

} // namespace
} // namespace apsis
