#include "scenes.h"

#include "control/keys.h"
#include "control/seeded_flight.h"
#include "physics/numeric.h"

#include <cmath>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace apsis {
namespace {

void tick(Controller& c, int ticks) {
    for (int i = 0; i < ticks; ++i)
        c.doFrame();
}

void press(Controller& c, unsigned short key) {
    c.keyDown(key);
    c.keyUp(key);
}

// Sets up a level with the same layout every time.
void startSeeded(Controller& c, int level, unsigned seed) {
    seedRandomAngles(seed);
    c.startLevel(level);
}

// A level in flight: briefing dismissed, world started, a few ticks flown.
void fly(Controller& c, int level, unsigned seed, int ticks) {
    flySeeded(c, level, seed);
    tick(c, ticks);
}

// A level in flight with the engine burning over the last ticks, so the flame shows.
void flyBurning(Controller& c, int level, unsigned seed, int ticks) {
    fly(c, level, seed, ticks);
    c.keyDown(kKeyUp);
    tick(c, 2);
}

// A level in flight seen across viewScale metres.
void flyAtScale(Controller& c, int level, unsigned seed, double viewScale) {
    fly(c, level, seed, 3);
    c.drawView.viewScale = viewScale;
    tick(c, 1);
}

// A level in flight after zoom in was held for 2.5 s: the followed planet fills the view, each of
// its pixels hundreds of points wide.
void flyZoomedIn(Controller& c, int level) {
    fly(c, level, static_cast<unsigned>(level), 30);
    c.keyDown(kKeyW);
    tick(c, 75);
    c.keyUp(kKeyW);
    tick(c, 1);
}

// The level-complete screen at its count: t = (200 - counter) / 20.
void complete(Controller& c, int level, int counter) {
    fly(c, level, 7, 5);
    c.setMode(MODE_LEVEL_COMPLETE);
    c.counter = counter;
}

// A level in flight with the navigation aids on, given the ticks they need to look a whole orbit
// ahead.
void flyWithAids(Controller& c, int level, unsigned seed, int ticks) {
    fly(c, level, seed, ticks);
    c.toggleNavAids();
    tick(c, 600);
}

// A burn at a heading, then the aids turned on and the world left to run.
void burnThenShowAids(Controller& c, double heading, int burnTicks, int coastTicks) {
    c.game.player.pos.angle = c.game.player.targetAngle = heading;
    c.keyDown(kKeyUp);
    tick(c, burnTicks);
    c.keyUp(kKeyUp);
    c.toggleNavAids();
    tick(c, coastTicks);
}

} // namespace

std::vector<Scene> scenes() {
    std::vector<Scene> all;
    const auto add = [&all](std::string name, std::function<void(Controller&)> play) {
        all.push_back({std::move(name), std::move(play)});
    };

    add("01-intro-start", [](Controller&) {});
    add("02-intro-half", [](Controller& c) { tick(c, 5); });
    add("03-intro-end", [](Controller& c) { tick(c, 9); });
    for (int entry = 1; entry <= 4; ++entry) {
        add("04-menu-" + std::to_string(entry), [entry](Controller& c) {
            tick(c, 10);
            c.menuChoice = entry;
        });
    }
    add("05-about", [](Controller& c) { c.setMode(MODE_ABOUT); });
    add("06-instructions", [](Controller& c) { c.setMode(MODE_INSTRUCTIONS); });
    for (const auto& [name, level, difficulty] :
         {std::tuple{"07-setup-level1-easy", 1, 1}, std::tuple{"07-setup-level8-hard", 8, 3}})
        add(name, [n = level, d = difficulty](Controller& c) {
            c.setMode(MODE_CHOICE);
            c.level = n;
            c.game.difficulty = d;
        });
    add("08-briefing-practice", [](Controller& c) { startSeeded(c, 0, 1); });
    add("08-briefing-level1", [](Controller& c) { startSeeded(c, 1, 1); });
    add("08-briefing-level7", [](Controller& c) { startSeeded(c, 7, 1); });

    add("09-paused-level1", [](Controller& c) {
        startSeeded(c, 1, 2);
        press(c, kKeySpace);
        tick(c, 1);
    });
    add("10-flight-level1", [](Controller& c) { flyBurning(c, 1, 2, 20); });
    add("10-flight-level1-zoomed-in", [](Controller& c) { flyAtScale(c, 1, 2, 2.5e6); });
    add("10-flight-level1-planets", [](Controller& c) { flyAtScale(c, 1, 2, 1.0e9); });
    add("10-flight-level1-solar-system", [](Controller& c) { flyAtScale(c, 1, 2, 2.0e12); });
    add("10-flight-level1-zoom-indicator", [](Controller& c) {
        fly(c, 1, 2, 3);
        c.drawView.zoomRect = 0.4;
    });
    add("11-flight-level3", [](Controller& c) { fly(c, 3, 3, 30); });
    add("11-flight-level4", [](Controller& c) { fly(c, 4, 4, 10); });
    add("11-flight-level6", [](Controller& c) { fly(c, 6, 6, 10); });
    add("12-flight-level7-start", [](Controller& c) { fly(c, 7, 7, 1); });
    add("12-flight-level7-burning", [](Controller& c) { flyBurning(c, 7, 7, 10); });
    add("12-flight-level7-wide", [](Controller& c) { flyAtScale(c, 7, 7, 2.0e7); });
    add("13-flight-level8", [](Controller& c) { fly(c, 8, 8, 10); });

    add("14-overlay-out-of-fuel", [](Controller& c) {
        fly(c, 1, 2, 3);
        c.game.player.fuel = 0.0;
    });
    add("14-overlay-time-limit", [](Controller& c) {
        fly(c, 5, 5, 3);
        c.game.elapsedTime = c.game.timeLimit + 3600.0;
    });
    add("14-overlay-both-banners-paused", [](Controller& c) {
        fly(c, 5, 5, 3);
        c.game.player.fuel = 0.0;
        c.game.elapsedTime = c.game.timeLimit + 3600.0;
        press(c, kKeySpace);
    });
    add("14-overlay-countdown", [](Controller& c) {
        fly(c, 3, 3, 3);
        c.isCountingDown = true;
        c.countDownTime = 86399.5;
    });
    add("14-overlay-partial-objective", [](Controller& c) {
        fly(c, 8, 8, 3);
        c.isPartialObjectiveDone = true;
    });

    add("15-complete-fading", [](Controller& c) { complete(c, 1, 190); });
    add("15-complete-title", [](Controller& c) { complete(c, 1, 180); });
    add("15-complete-fuel", [](Controller& c) { complete(c, 1, 158); });
    add("15-complete-all-no-limit", [](Controller& c) { complete(c, 1, 138); });
    add("15-complete-all-with-limit", [](Controller& c) { complete(c, 5, 138); });

    add("16-fade-start", [](Controller& c) {
        fly(c, 1, 2, 3);
        c.setMode(MODE_RESTART_FADE);
    });
    add("16-fade-half", [](Controller& c) {
        fly(c, 1, 2, 3);
        c.setMode(MODE_RESTART_FADE);
        c.counter = 4;
    });
    add("16-fade-last", [](Controller& c) {
        fly(c, 1, 2, 3);
        c.setMode(MODE_COLLISION_FADE);
        c.counter = 1;
    });
    add("17-collision", [](Controller& c) {
        fly(c, 1, 2, 3);
        c.setMode(MODE_COLLISION);
    });
    for (const int level : {1, 2, 3, 5, 7, 8}) {
        add("18-aids-level" + std::to_string(level),
            [level](Controller& c) { flyWithAids(c, level, static_cast<unsigned>(level), 10); });
    }
    add("18-aids-level1-after-burn", [](Controller& c) {
        fly(c, 1, 2, 3);
        burnThenShowAids(c, 0.3, 20, 150);
    });
    add("18-aids-level2-impact-ahead", [](Controller& c) {
        fly(c, 2, 2, 3);
        // Turned against the motion around Earth and burned: the low point sinks below ground.
        const Position& p = c.game.player.pos;
        const Position& e = c.game.earth.pos;
        burnThenShowAids(c, balance(std::atan2(p.vy - e.vy, p.vx - e.vx) + kPi), 80, 300);
    });
    add("18-aids-level7-countdown", [](Controller& c) {
        flyWithAids(c, 7, 7, 3);
        c.isCountingDown = true;
        c.countDownTime = 86399.5;
    });
    add("19-aids-heading-turning", [](Controller& c) {
        flyWithAids(c, 4, 4, 10);
        // Let go after a short turn: the nose is still on its way.
        c.keyDown(kKeyLeft);
        tick(c, 8);
        c.keyUp(kKeyLeft);
        // The camera on the craft, 400 km across.
        c.drawView.viewScale = 4.0e5;
        c.drawView.viewCenter.x = c.game.player.pos.x;
        c.drawView.viewCenter.y = c.game.player.pos.y;
    });
    add("19-aids-level4-approach", [](Controller& c) { flyWithAids(c, 4, 4, 10); });
    add("19-aids-level4-over-bright-earth", [](Controller& c) {
        flyWithAids(c, 4, 4, 10);
        // Earth fills the view but for a corner, under the notes and the marks' labels.
        const Position& p = c.game.player.pos;
        const Position& e = c.game.earth.pos;
        c.drawView.viewScale = 5.0e6;
        c.drawView.viewCenter = Position(e.x + 0.75 * (p.x - e.x), e.y + 0.75 * (p.y - e.y), 0, 0);
    });
    add("19-aids-level2-escaping", [](Controller& c) {
        fly(c, 2, 2, 3);
        // Sped up along its way to a quarter over Earth's escape speed: past the low point at once.
        Position& p = c.game.player.pos;
        const Position& e = c.game.earth.pos;
        const double escape = std::sqrt(2 * G * c.game.earth.mass / std::sqrt(sqDist(p, e)));
        const double k = 1.25 * escape / velDiff(p, e);
        p.vx = e.vx + k * (p.vx - e.vx);
        p.vy = e.vy + k * (p.vy - e.vy);
        c.toggleNavAids();
        tick(c, 300);
        c.drawView.viewScale = 6.0e7;
    });
    // Out of sight, zoomed out the goal, zoomed in on Earth the craft in its low orbit; and the
    // angle each briefing asks for, seen wide enough to hold its bodies.
    using Wide = std::tuple<const char*, int, double>;
    for (const auto& [name, level, scale] :
         {Wide{"19-aids-level3-goal-out-of-sight", 3, 1.0e8},
          Wide{"19-aids-level3-craft-out-of-sight", 3, 1.0e7},
          Wide{"19-aids-level5-phase", 5, 2.0e8}, Wide{"19-aids-level6-phase", 6, 1.2e9},
          Wide{"19-aids-level7-phase", 7, 8e11}})
        add(name, [n = level, s = scale](Controller& c) {
            flyWithAids(c, n, static_cast<unsigned>(n), 10);
            c.drawView.viewScale = s;
        });
    add("19-aids-crowding-the-read-outs", [](Controller& c) {
        fly(c, 2, 2, 3);
        const Position& p = c.game.player.pos;
        const Position& e = c.game.earth.pos;
        burnThenShowAids(c, balance(std::atan2(p.vy - e.vy, p.vx - e.vx) + kPi), 80, 300);
        // The camera moved so that the craft and its marks stand just under the left column.
        c.drawView.viewScale = 1.5e7;
        c.drawView.viewCenter.x = c.game.player.pos.x + 0.33 * c.drawView.viewScale;
        c.drawView.viewCenter.y = c.game.player.pos.y - 0.21 * c.drawView.viewScale;
        press(c, kKeySpace);
    });
    // The assists: a hold keeping the nose on the motion in level 4's low orbit, seen on the craft
    // with the aids showing the nose; a plan to raise level 2's orbit, alone and with the aids.
    add("20-hold-prograde-level4", [](Controller& c) {
        flyWithAids(c, 4, 4, 10);
        press(c, kKeyF3);
        tick(c, 60);
        c.drawView.viewScale = 4.0e5;
        c.drawView.viewCenter.x = c.game.player.pos.x;
        c.drawView.viewCenter.y = c.game.player.pos.y;
    });
    for (const bool withAids : {false, true}) {
        add(withAids ? "20-plan-level2-with-aids" : "20-plan-level2", [withAids](Controller& c) {
            fly(c, 2, 2, 3);
            if (withAids)
                c.toggleNavAids();
            c.keyDown(kKeyX); // full throttle
            tick(c, 10);
            c.keyUp(kKeyX);
            // At the high point, whichever comes first.
            press(c, kKeyF7);
            press(c, kKeyF7);
            c.keyDown(kKeyPageUp);
            tick(c, 45);
            c.keyUp(kKeyPageUp);
            c.keyDown(kKeyEnd);
            tick(c, 40);
            c.keyUp(kKeyEnd);
            press(c, kKeyF6);
            tick(c, 30);
            c.drawView.viewScale = 4.0e7;
        });
    }
    for (const int level : {1, 3, 6})
        add("19-zoomed-in-level" + std::to_string(level),
            [level](Controller& c) { flyZoomedIn(c, level); });
    return all;
}

} // namespace apsis
