#include "control/play.h"
#include "support/fake_resources.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace apsis {
namespace {

bool isFinite(const Position& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.vx) && std::isfinite(p.vy);
}

TEST(Extremes, HoldingAZoomKeyForMinutesNeverLosesTheScale) {
    // From infinity or 0 the other key could never bring the scale back.
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
        c.keyDown(key == kKeyW ? kKeyQ : kKeyW);
        play::ticks(c, 10);
        EXPECT_NE(c.drawView.viewScale, held) << "the other key no longer zooms after " << key;
    }
}

TEST(Extremes, ACraftFlungOutOfTheWorldLeavesTheRestOfTheGameWhole) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    const std::pair<double Position::*, double> flings[] = {
        {&Position::x, 1e30},
        {&Position::y, -1.7e308},
        {&Position::vx, 1e300},
        {&Position::vy, -kInf},
        {&Position::x, std::numeric_limits<double>::quiet_NaN()},
        {&Position::angle, 1e300},
    };
    ScopedFakeResources files;
    files->addEveryPicture();
    RecordingCanvas canvas({800.0f, 600.0f});
    for (const auto& [member, value] : flings) {
        for (const int level : {0, 4, 8}) {
            SCOPED_TRACE(testing::Message() << value << " in level " << level);
            play::seed(21);
            Controller c;
            play::toFlight(c, level, true);
            c.game.player.pos.*member = value;
            c.game.timeStep = 1051200.0; // a year per second of play
            for (int tick = 0; tick < 5; ++tick) {
                c.doFrame();
                play::redraw(c, canvas);
            }
            // The craft pulls nothing: every other body, and the camera on them, stay finite.
            for (const Stellar* body : {&c.game.sun, &c.game.earth, &c.game.moon, &c.game.jupiter,
                                        &c.game.satellite, &c.game.station, &c.game.asteroid})
                EXPECT_TRUE(isFinite(body->pos)) << body->name;
            EXPECT_TRUE(std::isfinite(c.drawView.viewCenter.x + c.drawView.viewCenter.y));
            EXPECT_NE(canvas.findText("Distance to ", true), nullptr); // the display still reads
            // Starting the level again brings the craft back.
            play::press(c, kKeyTab);
            play::ticks(c, 8);
            ASSERT_EQ(c.mode, MODE_LEVEL);
            EXPECT_TRUE(isFinite(c.game.player.pos) && std::isfinite(c.game.player.pos.angle));
        }
    }
}

TEST(Extremes, EveryScreenDrawsOnAViewOfOnePointOrNone) {
    ScopedFakeResources files;
    files->addEveryPicture();
    play::seed(22);
    for (int mode = MODE_INTRO; mode <= MODE_LEVEL_COMPLETE; ++mode) {
        SCOPED_TRACE(mode);
        Controller c;
        play::toFlight(c, 8, true);
        play::ticks(c, 3);
        c.mode = static_cast<MODE>(mode);
        c.counter = 1;
        // A view never sized draws from sizes of 0; one of zero width keeps the last sizes.
        RecordingCanvas none({0.0f, 480.0f});
        play::redraw(c, none);
        EXPECT_EQ(c.drawView.viewWidth, 0.0);
        RecordingCanvas point({1.0f, 1.0f});
        play::redraw(c, point);
        EXPECT_FALSE(point.drawing().empty());
        play::redraw(c, none);
        EXPECT_EQ(c.drawView.viewWidth, 1.0);
        EXPECT_EQ(c.drawView.viewScaleH, c.drawView.viewScale);
    }
}

} // namespace
} // namespace apsis
