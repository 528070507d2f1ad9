#include "control/play.h"
#include "support/fake_resources.h"
#include "support/recording_canvas.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace apsis {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// Pictures for every body and screen, so that a redraw takes the picture paths as well as the
// symbols.
void stockPictures(FakeResources& files) {
    for (const char* screen : {"splash", "menu", "menuAbout", "menuInstructions", "menuPractice",
                               "menuNew", "about", "instructions"})
        files.addPicture(std::string(screen) + ".jpg", 640, 480);
    for (const char* file : {"sun.jpg", "venus.jpg", "earth.jpg", "moon.jpg", "mars.jpg",
                             "jupiter.jpg", "asteroid.jpg", "ship.gif"})
        files.addPicture(file, 512, 512);
    files.addPicture("satellite.gif", 64, 64);
    files.addPicture("station.gif", 96, 96);
}

void redraw(Controller& c, RecordingCanvas& canvas) {
    canvas.clear();
    CanvasFocus focus(canvas);
    c.drawRect();
}

bool isFinite(const Position& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.vx) && std::isfinite(p.vy);
}

TEST(Extremes, HoldingAZoomKeyForMinutesNeverLosesTheScale) {
    // Minutes of q take the scale to the largest double and w to the smallest; from infinity or 0
    // the other key could never bring it back.
    for (const unsigned short key : {kKeyW, kKeyQ}) {
        play::seed(20);
        Controller c;
        play::toFlight(c, 1);
        c.keyDown(key);
        play::ticks(c, 9000);
        c.keyUp(key);
        const double held = c.drawView.viewScale;
        EXPECT_GT(held, 0.0) << key;
        EXPECT_TRUE(std::isfinite(held)) << key;

        const unsigned short other = key == kKeyW ? kKeyQ : kKeyW;
        c.keyDown(other);
        play::ticks(c, 10);
        c.keyUp(other);
        EXPECT_NE(c.drawView.viewScale, held) << "the other key no longer zooms after " << key;
    }
}

TEST(Extremes, ACraftFlungOutOfTheWorldLeavesTheRestOfTheGameWhole) {
    struct Case {
        const char* what;
        std::function<void(Position&)> fling;
    };
    const Case cases[] = {
        {"1e30 m out", [](Position& p) { p.x = 1e30; }},
        {"at the largest double", [](Position& p) { p.y = -1.7e308; }},
        {"1e300 m/s", [](Position& p) { p.vx = 1e300; }},
        {"infinitely fast", [](Position& p) { p.vy = -kInf; }},
        {"nowhere", [](Position& p) { p.x = kNaN; }},
        {"facing 1e300 rad", [](Position& p) { p.angle = 1e300; }},
    };
    ScopedFakeResources files;
    stockPictures(*files);
    RecordingCanvas canvas({800.0f, 600.0f});
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        for (const int level : {0, 4, 8}) {
            play::seed(21);
            Controller c;
            play::toRunningFlight(c, level);
            k.fling(c.game.player.pos);
            // A few ticks at a year per second of play, each drawn.
            c.game.timeStep = 1051200.0;
            for (int tick = 0; tick < 5; ++tick) {
                c.doFrame();
                redraw(c, canvas);
            }
            // The craft pulls nothing: every other body, and the camera on them, stay finite.
            for (const Stellar* body : {&c.game.sun, &c.game.earth, &c.game.moon, &c.game.jupiter,
                                        &c.game.satellite, &c.game.station, &c.game.asteroid})
                EXPECT_TRUE(isFinite(body->pos)) << body->name << " in level " << level;
            EXPECT_TRUE(std::isfinite(c.drawView.viewCenter.x));
            EXPECT_TRUE(std::isfinite(c.drawView.viewCenter.y));
            // The display still reads, whatever it has to say.
            ASSERT_NE(canvas.findTextStartingWith("Distance to "), nullptr) << level;

            // Starting the level again brings the craft back.
            play::press(c, kKeyTab);
            play::ticks(c, 8);
            ASSERT_EQ(c.mode, MODE_LEVEL);
            EXPECT_TRUE(isFinite(c.game.player.pos)) << level;
            EXPECT_TRUE(std::isfinite(c.game.player.pos.angle)) << level;
        }
    }
}

TEST(Extremes, EveryScreenDrawsOnAViewOfOnePointOrNone) {
    ScopedFakeResources files;
    stockPictures(*files);
    play::seed(22);
    for (const MODE mode :
         {MODE_INTRO, MODE_MENU, MODE_ABOUT, MODE_INSTRUCTIONS, MODE_LEVEL, MODE_CHOICE, MODE_PLAY,
          MODE_RESTART_FADE, MODE_COLLISION_FADE, MODE_COLLISION, MODE_LEVEL_COMPLETE}) {
        SCOPED_TRACE(mode);
        Controller c;
        play::toRunningFlight(c, 8);
        play::ticks(c, 3);
        c.mode = mode;
        c.counter = 1;

        // A view that was never sized draws from sizes of 0, and one of zero width keeps the last.
        RecordingCanvas none({0.0f, 480.0f});
        redraw(c, none);
        EXPECT_EQ(c.drawView.viewWidth, 0.0);

        RecordingCanvas point({1.0f, 1.0f});
        redraw(c, point);
        EXPECT_EQ(c.drawView.viewScaleH, c.drawView.viewScale);
        EXPECT_FALSE(point.drawing().empty());

        redraw(c, none);
        EXPECT_EQ(c.drawView.viewWidth, 1.0);
        EXPECT_EQ(c.drawView.viewScaleH, c.drawView.viewScale);
    }
}

} // namespace
} // namespace apsis
