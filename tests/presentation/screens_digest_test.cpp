#include "physics/numeric.h"
#include "support/draw_harness.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace apsis {
namespace {

using H = DrawHarness;

// One drawing call as a line of text, numbers to a hundredth, pictures by their file.
std::string describe(const RecordingCanvas::Call& c, FakeResources& files) {
    std::ostringstream out;
    const auto n = [&out](double v) { out << ' ' << std::lround(v * 100); };
    const auto rect = [&n](const Rect& r) { n(r.x), n(r.y), n(r.width), n(r.height); };
    const auto color = [&n](const Color& k) { n(k.r), n(k.g), n(k.b), n(k.a); };
    out << static_cast<int>(c.op);
    rect(c.rect), rect(c.source), color(c.color), n(c.opacity), n(c.at.x), n(c.at.y);
    for (const Path::Element& e : c.path.elements)
        out << " k" << static_cast<int>(e.kind), rect(e.rect);
    for (const auto& [file, picture] : files.pictures)
        if (picture.get() == c.picture)
            out << ' ' << file;
    out << " f" << static_cast<int>(c.style.family), n(c.style.size), color(c.style.color);
    if (c.style.background)
        color(*c.style.background);
    out << " '" << c.text << "'\n";
    return out.str();
}

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

// Every screen and a set of flight frames, each folded call by call into one number: this holds
// every layout, offset, colour and text exactly as it is. The other tests state the rules.
TEST(Screens, DrawEveryCallAsPinned) {
    struct Scene {
        const char* name;
        std::function<void(H&)> draw;
        std::uint64_t digest;
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
        {"intro 10", [](H& h) { h.view.drawIntro(10); }, 11569958109221243022u},
        {"intro 4", [](H& h) { h.view.drawIntro(4); }, 11773098555055004472u},
        {"menu 0", [](H& h) { h.view.drawMenu(0); }, 9993305842899247193u},
        {"menu 1", [](H& h) { h.view.drawMenu(1); }, 12515098882523222537u},
        {"menu 4", [](H& h) { h.view.drawMenu(4); }, 3689910644570391185u},
        {"menu 5", [](H& h) { h.view.drawMenu(5); }, 9993305842899247193u},
        {"choice 1 3", [](H& h) { h.view.drawChoice(1, 3); }, 18147378010659384886u},
        {"choice 8 2", [](H& h) { h.view.drawChoice(8, 2); }, 2651393758718369305u},
        {"choice 9 1", [](H& h) { h.view.drawChoice(9, 1); }, 9602440558868859914u},
        {"choice 8, a ninth empty line",
         [](H& h) {
             h.files->textFiles["levels.txt"] += "\n";
             h.view.drawChoice(8, 2);
         },
         2737472462881022302u},
        {"briefing 3", [](H& h) { h.view.drawLevel(3, h.game); }, 665038387643393582u},
        {"practice briefing", [](H& h) { h.view.drawLevel(0, h.game); }, 12675534908026382984u},
        {"complete 0.5", complete(0.5, 432000.0), 10135310407992959619u},
        {"complete 1", complete(1.0, 432000.0), 6122241045378591308u},
        {"complete 3", complete(3.0, 432000.0), 10323752621255806702u},
        {"complete 3.05", complete(3.05, 432000.0), 14080216018594876579u},
        {"complete, no limit", complete(3.05, 0.1), 9391393149003564752u},
        {"fade to white", [](H& h) { h.view.drawFadeToWhite(0.125, h.game); },
         17144978516311118868u},
        {"flight", play(2160.0, 18000.0, 1728000.0, true), 10190844095068473762u},
        {"paused, out of fuel and time", play(0.0, 5e5, 4e5, false), 2500491868985850144u},
        {"at the limit", play(-3.0, 4e5, 4e5, true), 588826903537060697u},
        {"past the limit", play(4320.0, 4e5 + 1, 4e5, true), 3835179121815627935u},
        {"no limit", play(2160.0, 1e12, 0.0, true), 858214511893569063u},
        {"zoom 0.1", zoom(0.1), 7748594248700224349u},
        {"zoom 0.15", zoom(0.15), 14881951710526503276u},
        {"zoom 0.4", zoom(0.4), 18239175124407548875u},
        {"zoom 0.85", zoom(0.85), 2678969685023582158u},
        {"zoom 1", zoom(1.0), 7748594248700224349u},
        {"every body", everyBody(true, true), 1229809443819700868u},
        {"every body, paused", everyBody(false, false), 6258048775026944044u},
        {"flag", [](H& h) { h.view.drawFlag(h.game); }, 12892301729258849533u},
        {"count down",
         [](H& h) {
             h.game.running = false;
             h.view.drawCountDown(-3.5, h.game);
         },
         15416530985357544602u},
        {"collision",
         [](H& h) {
             h.game.player.pos = Position(0.0, 0.0, 4.5, 6.0);
             h.view.viewTarget.pos = Position(1e6, 0.0, 0.0, 0.0);
             h.view.drawCollisionText(h.game);
         },
         7709288439465833285u},
        {"dot", symbol(0), 7826705059518156461u},
        {"dot, label below", symbol(1), 11423748383396564988u},
        {"cross", symbol(2), 690569518912747046u},
        {"dart", symbol(3), 905259540400827010u},
        {"dart and flame", symbol(4), 6952625300261788431u},
        {"unknown style", symbol(7), 905259540400827010u},
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
        std::string calls;
        std::uint64_t digest = 14695981039346656037u;
        for (const auto& call : h.canvas.calls)
            calls += describe(call, *h.files);
        for (const char ch : calls)
            digest = (digest ^ static_cast<unsigned char>(ch)) * 1099511628211u;
        EXPECT_EQ(digest, scene.digest) << scene.name << ", drawn as:\n" << calls;
    }
}

} // namespace
} // namespace apsis
