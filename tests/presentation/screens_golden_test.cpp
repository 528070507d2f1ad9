#include "physics/numeric.h"
#include "support/draw_harness.h"
#include "support/golden.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace apsis {
namespace {

using H = DrawHarness;

// The ship resting on Earth's surface and moving 7.5 m/s against it, half throttle, half a tank,
// five hours into a twenty-day limit.
void fly(H& h) {
    Game& g = h.game;
    g.earth.pos = Position(1.49e11, 0.0, 0.0, 29780.0);
    g.player.pos = Position(1.49e11, 6.38e6 + 2.0, 4.5, 29780.0 - 6.0);
    g.player.acceleration = 0.2;
    g.player.throttle = 0.5;
    g.player.maxFuel = 4320.0;
    g.player.fuel = 2160.0;
    g.elapsedTime = 5 * 3600.0;
    g.timeLimit = 20 * 86400.0;
    g.timeStep = 150.0;
    h.view.viewTarget = g.earth;
    h.view.viewCenter = g.earth.pos;
    h.view.viewScale = 25e6;
    h.view.initSizes();
}

// Every screen and a set of flight frames, each as its drawing calls in the golden file
// tests/golden/screens/<scene>.txt: every layout, offset, colour and text exactly as it is. The
// other tests state the rules.
TEST(Screens, DrawEveryCallAsPinned) {
    struct Scene {
        const char* name;
        std::function<void(H&)> draw;
    };
    const auto play = [](double fuel, double elapsed, double limit, bool running) {
        return [=](H& h) {
            fly(h);
            h.game.player.fuel = fuel, h.game.elapsedTime = elapsed, h.game.timeLimit = limit;
            h.game.running = running;
            h.view.drawPlay(h.game);
        };
    };
    const auto zoom = [](double z) {
        return [=](H& h) {
            fly(h);
            h.view.zoomRect = z;
            h.view.viewCenter.x -= 1e8, h.view.viewCenter.y -= 5e7;
            h.view.drawGame(h.game);
        };
    };
    const auto everyBody = [](bool optional, bool running) {
        return [=](H& h) {
            fly(h);
            h.view.viewScale = 1e13; // every body a symbol
            h.view.initSizes();
            h.game.moon.pos = h.game.mars.pos = h.view.viewCenter;
            h.game.asteroid.isActive = h.game.satellite.isActive = h.game.station.isActive =
                optional;
            h.game.player.isAccelerating = true;
            h.game.running = running;
            h.view.drawGame(h.game);
        };
    };
    const auto symbol = [](int style) {
        return [=](H& h) {
            h.view.viewScale = 1e12;
            h.view.viewCenter = Position();
            h.view.initSizes();
            h.game.earth.pos = Position(1e11, 5e10, 0.0, 0.0);
            h.game.earth.pos.angle = 1.0;
            h.game.earth.mainInfluence = &h.game.sun;
            h.view.drawStel(h.game.earth, style);
        };
    };
    const auto complete = [](double t, double limit) {
        return [=](H& h) {
            h.game.player.fuel = 1080.0, h.game.player.maxFuel = 4320.0;
            h.game.timeLimit = limit, h.game.elapsedTime = 108000.0;
            h.view.drawLevelComplete(t, h.game);
        };
    };
    const Scene scenes[] = {
        {"intro-10", [](H& h) { h.view.drawIntro(10); }},
        {"intro-4", [](H& h) { h.view.drawIntro(4); }},
        {"menu-0", [](H& h) { h.view.drawMenu(0); }},
        {"menu-1", [](H& h) { h.view.drawMenu(1); }},
        {"menu-4", [](H& h) { h.view.drawMenu(4); }},
        {"menu-5", [](H& h) { h.view.drawMenu(5); }},
        {"choice-1-3", [](H& h) { h.view.drawChoice(1, 3); }},
        {"choice-8-2", [](H& h) { h.view.drawChoice(8, 2); }},
        {"choice-9-1", [](H& h) { h.view.drawChoice(9, 1); }},
        {"choice-8-ninth-empty-line",
         [](H& h) {
             h.files->textFiles["levels.txt"] += "\n";
             h.view.drawChoice(8, 2);
         }},
        {"briefing-3", [](H& h) { h.view.drawLevel(3, h.game); }},
        {"briefing-practice", [](H& h) { h.view.drawLevel(0, h.game); }},
        {"complete-0.5", complete(0.5, 432000.0)},
        {"complete-1", complete(1.0, 432000.0)},
        {"complete-3", complete(3.0, 432000.0)},
        {"complete-3.05", complete(3.05, 432000.0)},
        {"complete-no-limit", complete(3.05, 0.1)},
        {"fade-to-white", [](H& h) { h.view.drawFadeToWhite(0.125, h.game); }},
        {"flight", play(2160.0, 18000.0, 1728000.0, true)},
        {"flight-paused-out-of-fuel-and-time", play(0.0, 5e5, 4e5, false)},
        {"flight-at-the-limit", play(-3.0, 4e5, 4e5, true)},
        {"flight-past-the-limit", play(4320.0, 4e5 + 1, 4e5, true)},
        {"flight-no-limit", play(2160.0, 1e12, 0.0, true)},
        {"zoom-0.1", zoom(0.1)},
        {"zoom-0.15", zoom(0.15)},
        {"zoom-0.4", zoom(0.4)},
        {"zoom-0.85", zoom(0.85)},
        {"zoom-1", zoom(1.0)},
        {"every-body", everyBody(true, true)},
        {"every-body-paused", everyBody(false, false)},
        {"flag", [](H& h) { h.view.drawFlag(h.game); }},
        {"count-down",
         [](H& h) {
             h.game.running = false;
             h.view.drawCountDown(-3.5, h.game);
         }},
        {"collision",
         [](H& h) {
             h.game.player.pos = Position(0.0, 0.0, 4.5, 6.0);
             h.view.viewTarget.pos = Position(1e6, 0.0, 0.0, 0.0);
             h.view.drawCollisionText(h.game);
         }},
        {"symbol-dot", symbol(0)},
        {"symbol-dot-label-below", symbol(1)},
        {"symbol-cross", symbol(2)},
        {"symbol-dart", symbol(3)},
        {"symbol-dart-and-flame", symbol(4)},
        {"symbol-unknown-style", symbol(7)},
    };
    for (const Scene& scene : scenes) {
        seedRandomAngles(1);
        H h({800.0f, 600.0f});
        h.files->addEveryPicture();
        h.files->addPicture("menuNew.jpg", 384, 60);
        h.files->textFiles["levels.txt"] = "1 Low Orbit\n2 Moon\n3 Venus\n4 Lagrange\n5 Mars\n"
                                           "6 Jupiter\n7 Station\n8 Asteroid";
        h.files->textFiles["level3.txt"] = "Go to Mars\nand\nland\non\nit.";
        scene.draw(h);
        expectMatchesGolden(std::string("screens/") + scene.name, callsAsText(h.canvas, *h.files));
    }
}

} // namespace
} // namespace apsis
