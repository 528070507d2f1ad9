#include "control/play.h"
#include "support/fake_resources.h"
#include "support/golden.h"
#include "world/levels.h"

#include <bitset>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace apsis {
namespace {

// A monkey at the keyboard: seeded presses, releases and ticks with a redraw after each tick, now
// and then a keeper who ends a hold, crashes or flings the craft, now and then a window of another
// shape. After every event the controller must still make sense, and every 1,000 ticks what it
// holds is written down: the golden files tests/golden/monkey/ hold every mode flow, key effect,
// bound and count as they are.

// Every key the game reads, and some it does not: capitals, Return, the null code, the top.
const std::vector<unsigned short> kKeyPool = {kKeyUp,    kKeyDown, kKeyLeft,   kKeyRight, kKeySpace,
                                              kKeySpace, kKeyTab,  kKeyEscape, kKeyA,     kKeyQ,
                                              kKeyS,     kKeyS,    kKeyW,      kKeyX,     kKeyZ,
                                              kKeyF2,    'W',      13,         0,         0xFFFF};
const std::vector<Size> kSurfaces = {{640, 480}, {1280, 800}, {1, 1}, {0, 480}};

bool sane(const Controller& c) {
    const double throttle = c.game.player.throttle;
    const double timeStep = c.game.timeStep;
    const double zoomRect = c.drawView.zoomRect;
    return c.mode >= MODE_INTRO && c.mode <= MODE_LEVEL_COMPLETE && c.counter >= 0 &&
           c.counter <= 200 && c.menuChoice >= 1 && c.menuChoice <= 4 && c.level >= 0 &&
           c.level < kLevelCount && c.game.difficulty >= 1 && c.game.difficulty <= 3 &&
           throttle >= 0.001 && throttle <= 1.0 && timeStep >= 1.0 / 30.0 &&
           timeStep <= 1051200.0 && (zoomRect == 0.0 || (zoomRect >= 0.1 && zoomRect <= 1.0)) &&
           c.drawView.viewScale > 0.0 && std::isfinite(c.drawView.viewScale) &&
           (!c.game.running || c.mode == MODE_PLAY);
}

struct Monkey {
    explicit Monkey(unsigned seed) : random(seed) {
        seedRandomAngles(seed);
        files->addEveryPicture();
        files->textFiles["levels.txt"] = "One\nTwo\nThree\nFour\nFive\nSix\nSeven\nEight";
        files->textFiles["level1.txt"] = "Briefing\nof two lines"; // the others missing
    }

    int pick(int low, int high) {
        return low + static_cast<int>((random() % static_cast<unsigned>(high - low + 1)));
    }

    // The controller's state as three lines of text, its numbers to the last bit.
    void note() {
        const Player& p = c.game.player;
        const DrawView& v = c.drawView;
        std::string flags;
        for (const auto& [set, name] : {std::pair{c.needsRedraw, " redraw"},
                                        {c.isCountingDown, " countingDown"},
                                        {c.isPartialObjectiveDone, " partDone"},
                                        {c.isZoomingIn, " zoomIn"},
                                        {c.isZoomingOut, " zoomOut"},
                                        {c.isSpeedingUp, " speedUp"},
                                        {c.isSlowingDown, " slowDown"},
                                        {c.isThrottlingUp, " throttleUp"},
                                        {c.isThrottlingDown, " throttleDown"},
                                        {c.game.running, " running"},
                                        {p.isAccelerating, " burning"},
                                        {p.isTurningLeft, " left"},
                                        {p.isTurningRight, " right"},
                                        {c.isShowingNavAids, " aids"}})
            flags += set ? name : "";
        char text[1000];
        std::snprintf(text, sizeof text,
                      "tick %ld: mode %d level %d counter %d choice %d difficulty %d path %zu "
                      "flags%s\n  craft x %.17g y %.17g vx %.17g vy %.17g angle %.17g target "
                      "%.17g throttle %.17g asked %.17g fuel %.17g\n  time %.17g step %.17g "
                      "countDown %.17g zoom %.17g scale %.17g centre %.17g %.17g following %s\n",
                      ticks, c.mode, c.level, c.counter, c.menuChoice, c.game.difficulty,
                      c.navAids.path.size(), flags.c_str(), p.pos.x, p.pos.y, p.pos.vx, p.pos.vy,
                      p.pos.angle, p.targetAngle, p.throttle, c.desiredThrottle, p.fuel,
                      c.game.elapsedTime, c.game.timeStep, c.countDownTime, v.zoomRect, v.viewScale,
                      v.viewCenter.x, v.viewCenter.y, v.viewTarget.name);
        states += text;
    }

    void check() {
        if (failure.empty() && !sane(c))
            failure = "broken at tick " + std::to_string(ticks) + ", mode " +
                      std::to_string(c.mode) + ", level " + std::to_string(c.level);
    }

    void play(long budget) {
        while (ticks < budget && failure.empty()) {
            const int roll = pick(0, 999);
            const unsigned short key =
                kKeyPool[static_cast<std::size_t>(pick(0, static_cast<int>(kKeyPool.size()) - 1))];
            if (roll < 400)
                c.keyDown(key);
            else if (roll < 700)
                c.keyUp(key);
            else if (roll < 960)
                tick(pick(1, 10));
            else if (roll < 997)
                keeper();
            else
                canvas.surface = kSurfaces[static_cast<std::size_t>(pick(0, 3))];
            check();
        }
    }

    void tick(int n) {
        for (int i = 0; i < n && failure.empty(); ++i) {
            c.doFrame();
            ++ticks;
            modesSeen.set(static_cast<std::size_t>(c.mode));
            if (c.mode == MODE_PLAY && c.game.running)
                levelsFlown.set(static_cast<std::size_t>(c.level));
            aidsShown = aidsShown || (c.isShowingNavAids && c.mode == MODE_PLAY && c.game.running);
            files->requests.clear();
            play::redraw(c, canvas);
            check();
            if (ticks % 1000 == 0)
                note();
            c.needsRedraw = false; // as the host does once it has drawn
        }
    }

    // On the set-up screen the keeper picks a level in turn.
    void keeper() {
        if (c.mode == MODE_CHOICE) {
            c.level = 1 + static_cast<int>(ticks % (kLevelCount - 1));
            c.keyDown(kKeySpace);
            return;
        }
        if (c.mode != MODE_PLAY || !c.game.running)
            return;
        Position& ship = c.game.player.pos;
        switch (pick(0, 4)) {
        case 0:
            c.isCountingDown = true;
            c.countDownTime = 0.0;
            break;
        case 1: // into Earth
            ship = c.game.earth.pos;
            ship.x += 1.0e6;
            break;
        case 2:
            ship.x = 1e30;
            break;
        case 3:
            ship.vx = 1e300;
            break;
        default:
            ship.x = std::numeric_limits<double>::quiet_NaN();
        }
    }

    std::mt19937 random;
    ScopedFakeResources files;
    RecordingCanvas canvas;
    Controller c;
    long ticks = 0;
    std::string failure;
    std::string states; // the state every 1,000 ticks
    std::bitset<11> modesSeen;
    std::bitset<kLevelCount> levelsFlown;
    bool aidsShown = false; // in a running flight
};

// Two seeds of 10,000 ticks each: 20,000 ticks of random keys, F2 among them, so that the aids
// too run under the sanitizers.
TEST(Monkey, EveryModeAndLevelWithoutABrokenStateAndAsPinned) {
    for (const unsigned seed : {1u, 2u}) {
        Monkey monkey(seed);
        monkey.play(10000);
        ASSERT_EQ(monkey.failure, "") << "seed " << seed;
        EXPECT_GE(monkey.ticks, 10000);
        expectMatchesGolden("monkey/seed-" + std::to_string(seed), monkey.states);
        EXPECT_TRUE(monkey.modesSeen.all()) << monkey.modesSeen;
        EXPECT_GE(monkey.levelsFlown.count(), 6u) << monkey.levelsFlown;
        EXPECT_TRUE(monkey.aidsShown) << "seed " << seed;
    }
}

} // namespace
} // namespace apsis
