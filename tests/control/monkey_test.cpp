#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "presentation/canvas.h"
#include "support/fake_resources.h"
#include "support/recording_canvas.h"

#include <array>
#include <bitset>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace apsis {
namespace {

// A monkey at the keyboard: a long seeded stream of presses, releases and ticks, with a full
// redraw after every tick, now and then a hand that moves the craft where the keys alone would
// take hours (onto its goal, into a planet, out to absurd distances), and now and then a window of
// another shape. After every event the controller must still make sense.
//
// The stream, the hand and the invariants serve this one test, so they stay together in one file
// though it runs past 300 lines.

// Every key the game reads, the busy ones several times over, and keys it does not read: capitals,
// a digit, Return, Delete, the null code, the top of the range and the private-use code after the
// arrows.
const std::vector<unsigned short> kKeyPool = {
    kKeyUp,    kKeyUp,   kKeyUp,     kKeyUp,    kKeyDown,  kKeyDown,  kKeyDown,  kKeyLeft,
    kKeyLeft,  kKeyLeft, kKeyRight,  kKeyRight, kKeyRight, kKeySpace, kKeySpace, kKeySpace,
    kKeySpace, kKeyTab,  kKeyEscape, kKeyA,     kKeyA,     kKeyQ,     kKeyQ,     kKeyS,
    kKeyS,     kKeyS,    kKeyW,      kKeyW,     kKeyX,     kKeyX,     kKeyZ,     kKeyZ,
    'A',       'Q',      'S',        'W',       'X',       'Z',       'b',       '0',
    13,        127,      0,          0xFFFF,    0xF704,
};

// The window shapes the monkey resizes to: ordinary ones, a single point, and none at all.
const std::vector<Size> kSurfaces = {
    {640.0f, 480.0f}, {1280.0f, 800.0f}, {1.0f, 1.0f}, {0.0f, 480.0f}, {2.0f, 3000.0f},
};

// The ticks each timed mode counts down from; a mode without a count keeps it at 0.
std::pair<int, int> counterRange(MODE mode) {
    switch (mode) {
    case MODE_INTRO:
        return {1, 10};
    case MODE_RESTART_FADE:
    case MODE_COLLISION_FADE:
        return {1, 8};
    case MODE_COLLISION:
        return {1, 60};
    case MODE_LEVEL_COMPLETE:
        return {1, 200};
    default:
        return {0, 0};
    }
}

// What must hold between any two events; empty when it does.
std::string violation(const Controller& c) {
    if (c.mode < MODE_INTRO || c.mode > MODE_LEVEL_COMPLETE)
        return "mode " + std::to_string(c.mode);
    const auto [low, high] = counterRange(c.mode);
    if (c.counter < low || c.counter > high)
        return "counter " + std::to_string(c.counter) + " in mode " + std::to_string(c.mode);
    if (c.menuChoice < 1 || c.menuChoice > 4)
        return "menuChoice " + std::to_string(c.menuChoice);
    if (c.level < 0 || c.level > 8)
        return "level " + std::to_string(c.level);
    if (c.game.difficulty < 1 || c.game.difficulty > 3)
        return "difficulty " + std::to_string(c.game.difficulty);
    const double throttle = c.game.player.throttle;
    if (!(throttle >= 0.001 && throttle <= 1.0))
        return "throttle " + std::to_string(throttle);
    const double timeStep = c.game.timeStep;
    if (!(timeStep >= 1.0 / 30.0 && timeStep <= 1051200.0))
        return "timeStep " + std::to_string(timeStep);
    const double zoomRect = c.drawView.zoomRect;
    if (!(zoomRect == 0.0 || (zoomRect >= 0.1 && zoomRect <= 1.0)))
        return "zoomRect " + std::to_string(zoomRect);
    const double viewScale = c.drawView.viewScale;
    if (!(viewScale > 0.0 && std::isfinite(viewScale)))
        return "viewScale " + std::to_string(viewScale);
    if (c.game.running && c.mode != MODE_PLAY)
        return "the world runs in mode " + std::to_string(c.mode);
    return {};
}

// Pictures for every body and screen, and the texts, one of them empty and one missing.
void stockResources(FakeResources& files) {
    files.addPicture("sun.jpg", 600, 600);
    for (const char* file : {"venus.jpg", "earth.jpg", "moon.jpg", "mars.jpg", "jupiter.jpg",
                             "asteroid.jpg", "ship.gif"})
        files.addPicture(file, 512, 512);
    files.addPicture("satellite.gif", 64, 64);
    files.addPicture("station.gif", 96, 96);
    for (const char* screen : {"splash", "menu", "menuAbout", "menuInstructions", "menuPractice",
                               "menuNew", "about", "instructions"})
        files.addPicture(std::string(screen) + ".jpg", 640, 480);
    files.textFiles["levels.txt"] = "One\nTwo\nThree\nFour\nFive\nSix\nSeven\nEight\n";
    for (int n = 0; n <= 8; ++n)
        files.textFiles["level" + std::to_string(n) + ".txt"] = "Briefing\nof two lines";
    files.textFiles["level3.txt"] = "";
    files.textFiles.erase("level5.txt");
}

class Monkey {
  public:
    explicit Monkey(unsigned seed) : random_(seed) {
        randSeedSet = true;
        std::srand(seed);
        stockResources(*files_);
    }

    // Plays until at least `budget` ticks have passed, stopping at the first broken invariant.
    void play(long budget) {
        while (ticks < budget && !broken()) {
            const int roll = pick(0, 999);
            if (roll < 450)
                pressRandomKey();
            else if (roll < 750)
                releaseRandomKey();
            else if (roll < 965)
                tick(pick(1, 10));
            else if (roll < 966)
                holdTimeOn();
            else if (roll < 997)
                keeper();
            else
                surface_ = kSurfaces[pickIndex(kSurfaces.size())];
        }
    }

    bool broken() const { return !firstViolation.empty(); }

    long ticks = 0;
    long keyEvents = 0;
    long ticksAtLongestStep = 0; // flying at a year per second
    std::string firstViolation;
    std::bitset<11> modesSeen;
    std::bitset<9> levelsFlown;       // with the world running
    std::bitset<4> difficultiesFlown; // index 1 to 3

  private:
    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    std::size_t pickIndex(std::size_t size) {
        return std::uniform_int_distribution<std::size_t>(0, size - 1)(random_);
    }
    unsigned short anyKey() { return kKeyPool[pickIndex(kKeyPool.size())]; }

    void check(const char* after) {
        if (broken())
            return;
        if (std::string what = violation(c_); !what.empty())
            firstViolation = what + " after " + after + ", tick " + std::to_string(ticks);
    }

    void keyDown(unsigned short key) {
        c_.keyDown(key);
        held_.insert(key);
        ++keyEvents;
        check("a key press");
    }

    void keyUp(unsigned short key) {
        c_.keyUp(key);
        held_.erase(key);
        ++keyEvents;
        check("a key release");
    }

    // Half the presses are arrows, so that the menus' choices wander far before a key opens them.
    void pressRandomKey() {
        keyDown(pick(0, 1) == 0 ? static_cast<unsigned short>(kKeyUp + pick(0, 3)) : anyKey());
    }

    // Mostly a key that is down; sometimes one that never was, as after a lost focus.
    void releaseRandomKey() {
        if (!held_.empty() && pick(0, 9) < 7) {
            auto it = held_.begin();
            std::advance(it, pick(0, static_cast<int>(held_.size()) - 1));
            keyUp(*it);
        } else {
            keyUp(anyKey());
        }
    }

    void tick(int n) {
        for (int i = 0; i < n && !broken(); ++i) {
            c_.doFrame();
            c_.needsRedraw = false;
            ++ticks;
            modesSeen.set(static_cast<std::size_t>(c_.mode));
            if (c_.mode == MODE_PLAY && c_.game.running) {
                levelsFlown.set(static_cast<std::size_t>(c_.level));
                ++ticksFlown_[static_cast<std::size_t>(c_.level)];
                if (c_.game.timeStep == 1051200.0)
                    ++ticksAtLongestStep;
                difficultiesFlown.set(static_cast<std::size_t>(c_.game.difficulty));
            }
            check("a tick");
            redraw();
        }
    }

    void redraw() {
        canvas_.clear();
        canvas_.surface = surface_;
        files_->requests.clear();
        CanvasFocus focus(canvas_);
        c_.drawRect();
        check("a redraw");
    }

    // A long flight with s held: the time step climbs to its ceiling within seconds and stays.
    void holdTimeOn() {
        if (c_.mode != MODE_PLAY)
            return;
        if (!c_.game.running)
            keyDown(kKeySpace);
        keyDown(kKeyS);
        tick(pick(500, 2500));
        keyUp(kKeyS);
    }

    // The monkey's keeper steps in where chance alone would take too long: on the set-up screen
    // it keys in the level and difficulty flown least so far; in flight it moves the craft.
    void keeper() {
        if (c_.mode == MODE_CHOICE)
            chooseLeastFlown();
        else if (c_.mode == MODE_PLAY && c_.game.running)
            moveTheCraft();
    }

    void chooseLeastFlown() {
        std::size_t level = 1;
        for (std::size_t n = 2; n <= 8; ++n)
            if (ticksFlown_[n] < ticksFlown_[level])
                level = n;
        const int difficulty = 1 + static_cast<int>(keyEvents % 3);
        while (c_.level != static_cast<int>(level) && !broken())
            keyDown(kKeyDown);
        while (c_.game.difficulty != difficulty && !broken())
            keyDown(kKeyRight);
        keyDown(kKeySpace);
    }

    // Meets the level's goal, crashes, or flings the craft away.
    void moveTheCraft() {
        Game& g = c_.game;
        Position& ship = g.player.pos;
        const auto placeOn = [&](const Stellar& body, double offset) {
            ship.x = body.pos.x + offset;
            ship.y = body.pos.y;
            ship.vx = body.pos.vx;
            ship.vy = body.pos.vy;
        };
        constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
        switch (pick(0, 5)) {
        case 0:
        case 1: // the goal
            if (c_.level == 4 || c_.level == 5)
                placeOn(g.satellite, 0.0);
            else if (c_.level == 6)
                placeOn(g.station, 0.0);
            else if (c_.level == 8)
                placeOn(c_.isPartialObjectiveDone ? g.station : g.asteroid,
                        c_.isPartialObjectiveDone ? 0.0 : 200.0);
            else if (c_.level == 1)
                g.player.putInOrbitAround(g.earth, 8e6);
            else if (c_.level == 2)
                g.player.putInOrbitAround(g.earth, 4.2e7);
            else if (c_.level == 3)
                g.player.putInOrbitAround(g.moon, 3e6);
            else if (c_.level == 7)
                g.player.putInOrbitAround(g.mars, 3.7e6);
            break;
        case 2: // into a planet
            placeOn(g.earth, 1000.0);
            break;
        case 3:
            ship.x = 1e30;
            break;
        case 4:
            ship.vx = 1e300;
            break;
        case 5:
            ship.x = kNaN;
            break;
        }
        check("a move of the craft");
    }

    std::mt19937 random_;
    ScopedFakeResources files_;
    RecordingCanvas canvas_;
    Size surface_{640.0f, 480.0f};
    std::set<unsigned short> held_;
    std::array<long, 9> ticksFlown_{};
    Controller c_;
};

// Each seed is its own test, so that the runs share the cores.
class MonkeyTest : public ::testing::TestWithParam<unsigned> {};

TEST_P(MonkeyTest, EveryModeLevelAndDifficultyWithoutABrokenState) {
    Monkey monkey(GetParam());
    monkey.play(50000);
    ASSERT_EQ(monkey.firstViolation, "");
    // The stream really went everywhere.
    EXPECT_TRUE(monkey.modesSeen.all()) << monkey.modesSeen;
    EXPECT_TRUE(monkey.levelsFlown.all()) << monkey.levelsFlown;
    EXPECT_EQ(monkey.difficultiesFlown.count(), 3u) << monkey.difficultiesFlown;
    EXPECT_GT(monkey.ticksAtLongestStep, 5000);
    std::printf("seed %u: %ld ticks (%ld at a year per second), %ld key events\n", GetParam(),
                monkey.ticks, monkey.ticksAtLongestStep, monkey.keyEvents);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, ::testing::Values(1u, 2u, 3u, 4u));

} // namespace
} // namespace apsis
