#include "control/nav_prediction.h"
#include "control/play.h"
#include "support/fake_resources.h"
#include "support/golden.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace apsis {
namespace {

// Two flights with the same keys, one of them with the aids turned on for a while and off again:
// the off flight draws what the game always drew, and the aids, while on, only add to it (plates
// under the read-outs, their own marks over the scene). The assists taken up and let go again
// change nothing either.
TEST(NavAids, OffChangesNothingAndOnOnlyAddsToThePicture) {
    ScopedFakeResources files;
    Controller plain, aided;
    RecordingCanvas plainCanvas({800.0f, 600.0f}), aidedCanvas({800.0f, 600.0f});
    flySeeded(plain, 1, 5);
    flySeeded(aided, 1, 5);
    for (int tick = 0; tick < 60; ++tick) {
        const bool on = tick >= 10 && tick < 40;
        if (on != aided.isShowingNavAids)
            aided.toggleNavAids();
        if (tick == 5 || tick == 20) {
            // The assists taken up and let go before the world moves: a plan made and dropped,
            // a hold chosen and ended by a turn key. They leave no trace.
            for (const unsigned short key : {kKeyF7, kKeyPageUp, kKeyF6, kKeyF8, kKeyF3})
                play::press(aided, key);
            aided.keyDown(kKeyLeft);
            aided.keyUp(kKeyLeft);
        }
        for (Controller* c : {&plain, &aided}) {
            c->keyDown(tick % 20 < 5 ? kKeyUp : kKeyLeft); // burns and turns, the aids' hardest
            c->doFrame();
            c->keyUp(tick % 20 < 5 ? kKeyUp : kKeyLeft);
        }
        ASSERT_EQ(plain.game.player.pos.x, aided.game.player.pos.x) << tick;
        play::redraw(plain, plainCanvas);
        play::redraw(aided, aidedCanvas);
        const std::string base = callsAsText(plainCanvas, *files);
        const std::string over = callsAsText(aidedCanvas, *files);
        ASSERT_EQ(over.size() > base.size(), on) << tick;
        ASSERT_TRUE(on ? isAddedTo(base, over) : over == base) << tick;
    }
}

// The craft left alone flies through the predicted places to the last bit, also after a burn
// and a change of time step have made the path be found again.
TEST(NavPrediction, TheCraftLeftAloneFliesExactlyAlongThePath) {
    ScopedFakeResources files;
    // A level and a key held for a few ticks before the path is checked.
    const std::pair<int, unsigned short> cases[] = {{1, 0}, {1, kKeyUp}, {2, kKeyS}, {8, kKeyUp}};
    for (const auto& [level, key] : cases) {
        Controller c;
        flySeeded(c, level, 9);
        c.toggleNavAids();
        c.keyDown(key);
        play::ticks(c, 4);
        c.keyUp(key);
        play::ticks(c, 40);
        c.navPrediction.settle();
        std::vector<PathSample> path;
        for (const PathSample* place : c.navPrediction.path())
            path.push_back(*place);
        ASSERT_GT(path.size(), 60u) << level;
        for (std::size_t k = 1; k < 60; ++k) {
            c.doFrame();
            const Position& p = c.game.player.pos;
            ASSERT_TRUE(p.x == path[k].craft.x && p.y == path[k].craft.y &&
                        p.vx == path[k].craft.vx && p.vy == path[k].craft.vy)
                << "level " << level << " step " << k;
        }
    }
}

// High and low points of orbits whose shape is known: the level starts are circles; a craft
// 1.2 times as fast as a circle at 7,000 km has its low point there and its high point at
// 7,000 km * 1.44 / 0.56, half an orbit ahead; 1.5 times as fast, it escapes.
TEST(NavAids, HighAndLowPointsOfKnownOrbits) {
    ScopedFakeResources files;
    struct Case {
        int level;
        double speedUp, low, high; // speedUp 0 keeps the level's start; m from Earth's centre
    };
    const double surface = 6380000.0 + 2.0;
    const double mu = G * 5.98e24;
    for (const Case& test : {Case{2, 0, 6678000, 6678000}, Case{0, 1.2, 7e6, 7e6 * 1.44 / 0.56},
                             Case{0, 1.5, 7e6, 0}}) { // a high point of 0 for an escape
        seedRandomAngles(4);
        Game game;
        game.setLevel(test.level);
        if (test.speedUp != 0) {
            const double v = test.speedUp * std::sqrt(mu / 7e6);
            game.player.pos = game.earth.pos;
            game.player.pos.x += 7e6;
            game.player.pos.vy += v;
        }
        NavPrediction prediction;
        const NavAids aids = prediction.aids(game, test.level, false, game.earth);
        ASSERT_TRUE(aids.hasOrbit);
        EXPECT_NEAR(aids.low.value + surface, test.low, 1.0) << test.level;
        EXPECT_EQ(aids.isEscaping, test.high == 0) << test.level;
        if (test.high != 0) {
            EXPECT_NEAR(aids.high.value + surface, test.high, 1.0) << test.level;
        }
        if (test.speedUp == 1.2) { // half of the period of an orbit of half axis 7,000 km / 0.56
            EXPECT_NEAR(aids.high.time, kPi * std::sqrt(std::pow(7e6 / 0.56, 3) / mu), 1.0);
            EXPECT_NEAR(aids.high.at.x, -7e6 * 1.44 / 0.56, 1.0);
        }
    }
}

// On an escape path the low point is named only while it lies ahead: falling in, with the time
// the world then takes to bring the craft closest; climbing away, not at all, nor a high point.
TEST(NavAids, TheLowPointOfAnEscapeOnlyWhileItLiesAhead) {
    ScopedFakeResources files;
    const double mu = G * 5.98e24;
    const double e = 1.25, p = 7e6 * (1 + e); // a low point 7,000 km from Earth's centre
    for (const double nu : {-1.0, 1.0}) {     // rad from the low point, the way the craft flies
        seedRandomAngles(4);
        Game game;
        game.setLevel(0);
        game.timeStep = 2.0;
        const double r = p / (1 + e * std::cos(nu));
        const double radial = std::sqrt(mu / p) * e * std::sin(nu);
        const double across = std::sqrt(mu / p) * (1 + e * std::cos(nu));
        game.player.pos = game.earth.pos;
        game.player.pos.x += r * std::cos(nu);
        game.player.pos.y += r * std::sin(nu);
        game.player.pos.vx += radial * std::cos(nu) - across * std::sin(nu);
        game.player.pos.vy += radial * std::sin(nu) + across * std::cos(nu);
        NavPrediction prediction;
        const NavAids aids = prediction.aids(game, 0, false, game.earth);
        ASSERT_TRUE(aids.hasOrbit && aids.isEscaping);
        EXPECT_FALSE(aids.high.isShown);
        EXPECT_EQ(aids.low.isShown, nu < 0) << nu;
        if (nu > 0)
            continue;
        double closest = r, when = 0;
        for (int k = 1; k < 2000; ++k) {
            game.doFrame(0);
            if (const double d = std::sqrt(sqDist(game.player.pos, game.earth.pos)); d < closest) {
                closest = d;
                when = k * game.timeStep;
            }
        }
        EXPECT_NEAR(aids.low.value + 6380000.0 + 2.0, closest, 1e3);
        EXPECT_NEAR(aids.low.time, when, 2 * game.timeStep);
    }
}

// The closest approach to the target along the path is the closest the craft then comes, found
// between the path's places as finely as a replay in steps a hundred times shorter finds it: to
// the satellite in level 5, and in level 8 to the asteroid, the craft put a little off its track.
TEST(NavAids, ClosestApproachIsWhatTheFlightThenReaches) {
    ScopedFakeResources files;
    for (const int level : {5, 8}) {
        Controller c;
        flySeeded(c, level, 11);
        if (level == 5) {
            // Beside the satellite, drifting past it at a few metres a second.
            Position& p = c.game.player.pos;
            p = c.game.satellite.pos;
            p.y += 2000.0;
            p.vx += 4.0;
            p.vy -= 1.5;
            c.game.timeStep = 30.0;
        }
        if (level == 8) {
            // Out at Earth's distance from the Sun, where a metre is still a fine measure, but on
            // the far side from Earth.
            Position& rock = c.game.asteroid.pos;
            const Position& earth = c.game.earth.pos;
            rock = Position(-earth.x, -earth.y, -earth.vx, -earth.vy);
            Position& p = c.game.player.pos;
            p = rock;
            p.x += 900.0;
            p.vx -= 3.0;
            p.vy += 0.7; // past at about 200 m, clear of its 150 m
            c.game.timeStep = 10.0;
        }
        c.toggleNavAids();
        c.navPrediction.settle();
        const NavAids aids = c.navPrediction.aids(c.game, level, false, c.drawView.viewTarget);
        ASSERT_TRUE(aids.approach.isShown);
        ASSERT_FALSE(aids.approach.isBeyondPath);
        const Stellar& target = level == 5 ? c.game.satellite : c.game.asteroid;
        const double radii = target.cRadius + c.game.player.cRadius;
        EXPECT_LE(aids.approach.value, aids.targetGap);
        // The world as the game flies it, up to the step before the approach, then in steps ten
        // times shorter.
        Game replay = c.game;
        const double step = replay.timeStep;
        const double start = replay.elapsedTime;
        while (replay.elapsedTime + step < start + aids.approach.time)
            replay.doFrame(level);
        replay.timeStep = step / 10;
        const Stellar& body = level == 5 ? replay.satellite : replay.asteroid;
        double closest = std::sqrt(sqDist(replay.player.pos, body.pos)) - radii;
        double when = replay.elapsedTime - start, speed = velDiff(replay.player.pos, body.pos);
        for (int k = 0; k < 20; ++k) {
            replay.doFrame(level);
            if (const double d = std::sqrt(sqDist(replay.player.pos, body.pos)) - radii;
                d < closest) {
                closest = d;
                when = replay.elapsedTime - start;
                speed = velDiff(replay.player.pos, body.pos);
            }
        }
        EXPECT_NEAR(aids.approach.value, closest, 0.5) << level;
        EXPECT_NEAR(aids.approach.time, when, step / 10) << level;
        EXPECT_NEAR(aids.approach.speed, speed, 1e-3 * speed + 1e-3) << level;
        if (level == 8) {
            EXPECT_LT(closest, 250.0);
        }
    }
}

// F2 acts in flight only, paused or running; elsewhere it is not even the key a screen waits for.
TEST(NavAids, F2TurnsThemOnAndOffInFlightOnly) {
    ScopedFakeResources files;
    Controller c;
    for (const MODE mode : {MODE_MENU, MODE_LEVEL, MODE_LEVEL_COMPLETE, MODE_RESTART_FADE}) {
        c.setMode(mode);
        play::press(c, kKeyF2);
        EXPECT_FALSE(c.isShowingNavAids) << mode;
        EXPECT_EQ(c.mode, mode);
    }
    play::toStillFlight(c, 1, 1);
    play::press(c, kKeyF2);
    EXPECT_TRUE(c.isShowingNavAids);
    play::press(c, kKeySpace);
    play::press(c, kKeyF2);
    EXPECT_FALSE(c.isShowingNavAids);
    EXPECT_TRUE(c.game.running);
}

// Flight frames of real levels with the navigation aids on, each as its drawing calls in the
// golden file tests/golden/aids/<scene>.txt: the path ahead, the high and low points, the zone,
// the target with the closest approach, and an impact ahead, with their notes.
TEST(NavAids, DrawEveryCallAsPinned) {
    struct Scene {
        const char* name;
        int level;
        double heading;   // of a burn before the aids come on; NaN: against the motion around Earth
        int burnTicks;    // 0 for no burn
        int coastTicks;   // with the aids on
        double viewScale; // m across the view at the end; 0 leaves the camera as the game set it
    };
    const Scene scenes[] = {
        {"level1-after-burn-high-and-low", 1, 0.3, 20, 150, 0},
        {"level2-zone", 2, 0, 0, 100, 1.2e8}, // from far enough for the zone's two circles
        {"level5-target-and-closest-approach", 5, 0, 0, 100, 0},
        {"level2-impact-ahead", 2, NAN, 80, 300, 0}, // the low point sinks below the ground
    };
    for (const Scene& scene : scenes) {
        ScopedFakeResources files;
        files->addEveryPicture();
        RecordingCanvas canvas({800.0f, 600.0f});
        Controller c;
        flySeeded(c, scene.level, 2);
        play::ticks(c, 3);
        if (scene.burnTicks > 0) {
            Position& p = c.game.player.pos;
            const Position& e = c.game.earth.pos;
            p.angle = c.game.player.targetAngle =
                std::isnan(scene.heading) ? balance(std::atan2(p.vy - e.vy, p.vx - e.vx) + kPi)
                                          : scene.heading;
            c.keyDown(kKeyUp);
            play::ticks(c, scene.burnTicks);
            c.keyUp(kKeyUp);
        }
        play::press(c, kKeyF2);
        play::ticks(c, scene.coastTicks);
        if (scene.viewScale > 0) {
            c.drawView.viewScale = scene.viewScale;
            play::ticks(c, 1);
        }
        ASSERT_TRUE(c.isShowingNavAids && c.mode == MODE_PLAY) << scene.name;
        // The whole path, as the worker would have found it by now.
        c.navPrediction.settle();
        c.updateNavAids();
        play::redraw(c, canvas);
        expectMatchesGolden(std::string("aids/") + scene.name, callsAsText(canvas, *files));
    }
}

} // namespace
} // namespace apsis
