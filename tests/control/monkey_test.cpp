#include "control/play.h"
#include "support/fake_resources.h"
#include "world/levels.h"

#include <bit>
#include <bitset>
#include <cmath>
#include <cstdint>
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
// shape. After every event the controller must still make sense, and all it holds is folded
// into a digest: pinned, it holds every mode flow, key effect, bound and count as they are.

// Every key the game reads, and some it does not: capitals, Return, the null code, the top.
const std::vector<unsigned short> kKeyPool = {
    kKeyUp, kKeyDown, kKeyLeft, kKeyRight, kKeySpace, kKeySpace, kKeyTab, kKeyEscape, kKeyA, kKeyQ,
    kKeyS,  kKeyS,    kKeyW,    kKeyX,     kKeyZ,     'W',       13,      0,          0xFFFF};
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

    void fold(double value) {
        auto bits = std::isnan(value) ? 1u : std::bit_cast<std::uint64_t>(value);
        for (int byte = 0; byte < 8; ++byte, bits >>= 8)
            digest = (digest ^ (bits & 0xFFu)) * 1099511628211u;
    }

    void check() {
        const Player& p = c.game.player;
        int flags = (c.mode * 10 + c.level) * 2000 + c.counter * 8 + c.menuChoice;
        for (const bool flag :
             {c.needsRedraw, c.isCountingDown, c.isPartialObjectiveDone, c.isZoomingIn,
              c.isZoomingOut, c.isSpeedingUp, c.isSlowingDown, c.isThrottlingUp, c.isThrottlingDown,
              c.game.running, p.isAccelerating, p.isTurningLeft, p.isTurningRight})
            flags = flags * 2 + flag;
        for (const double value :
             {double(flags), double(c.game.difficulty), c.countDownTime, c.desiredThrottle,
              p.throttle, p.fuel, p.pos.x, p.pos.vy, p.targetAngle, c.game.timeStep,
              c.game.elapsedTime, c.drawView.zoomRect, c.drawView.viewScale,
              c.drawView.viewCenter.x, double(*c.drawView.viewTarget.name)})
            fold(value);
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
            files->requests.clear();
            play::redraw(c, canvas);
            check();
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
    std::uint64_t digest = 14695981039346656037u;
    std::bitset<11> modesSeen;
    std::bitset<kLevelCount> levelsFlown;
};

TEST(Monkey, EveryModeAndLevelWithoutABrokenStateAndOnThePinnedDigest) {
    for (const auto& [seed, digest] : {std::pair{1u, std::uint64_t{11342333470004044229u}},
                                       std::pair{2u, std::uint64_t{9087641180791082027u}}}) {
        Monkey monkey(seed);
        monkey.play(10000);
        ASSERT_EQ(monkey.failure, "") << "seed " << seed;
        EXPECT_EQ(monkey.digest, digest)
            << "seed " << seed << " ends in mode " << monkey.c.mode << " level " << monkey.c.level;
        EXPECT_TRUE(monkey.modesSeen.all()) << monkey.modesSeen;
        EXPECT_GE(monkey.levelsFlown.count(), 6u) << monkey.levelsFlown;
    }
}

} // namespace
} // namespace apsis
