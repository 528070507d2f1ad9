#include "control/play.h"
#include "support/fake_resources.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace apsis {
namespace {

// A monkey at the keyboard: a long seeded stream of presses, releases and ticks, with a full
// redraw after every tick, now and then a keeper who moves the craft where the keys alone would
// take hours (onto its goal, into a planet, out to absurd distances), and now and then a window of
// another shape. After every event the controller must still make sense.

// Every key the game reads, the busy ones several times over, and keys it does not read: capitals,
// a digit, Return, Delete, the null code, the top of the range and the code after the arrows.
const std::vector<unsigned short> kKeyPool = {
    kKeyUp,    kKeyUp,   kKeyUp,     kKeyUp,    kKeyDown,  kKeyDown,  kKeyDown,  kKeyLeft,
    kKeyLeft,  kKeyLeft, kKeyRight,  kKeyRight, kKeyRight, kKeySpace, kKeySpace, kKeySpace,
    kKeySpace, kKeyTab,  kKeyEscape, kKeyA,     kKeyA,     kKeyQ,     kKeyQ,     kKeyS,
    kKeyS,     kKeyS,    kKeyW,      kKeyW,     kKeyX,     kKeyX,     kKeyZ,     kKeyZ,
    'A',       'Q',      'S',        'W',       'X',       'Z',       'b',       '0',
    13,        127,      0,          0xFFFF,    0xF704};

// Ordinary windows, a single point, and none at all.
const std::vector<Size> kSurfaces = {{640, 480}, {1280, 800}, {1, 1}, {0, 480}, {2, 3000}};

// The count each mode starts from; a timed mode's count stays between 1 and it, others' at 0.
constexpr std::array<int, 11> kLongestCount = {10, 0, 0, 0, 0, 0, 0, 8, 8, 60, 200};

// What must hold between any two events.
bool sane(const Controller& c) {
    if (c.mode < MODE_INTRO || c.mode > MODE_LEVEL_COMPLETE)
        return false;
    const int longest = kLongestCount[static_cast<std::size_t>(c.mode)];
    const double throttle = c.game.player.throttle;
    const double timeStep = c.game.timeStep;
    const double zoomRect = c.drawView.zoomRect;
    const double viewScale = c.drawView.viewScale;
    return c.counter >= (longest > 0 ? 1 : 0) && c.counter <= longest && c.menuChoice >= 1 &&
           c.menuChoice <= 4 && c.level >= 0 && c.level <= 8 && c.game.difficulty >= 1 &&
           c.game.difficulty <= 3 && throttle >= 0.001 && throttle <= 1.0 &&
           timeStep >= 1.0 / 30.0 && timeStep <= 1051200.0 &&
           (zoomRect == 0.0 || (zoomRect >= 0.1 && zoomRect <= 1.0)) && viewScale > 0.0 &&
           std::isfinite(viewScale) && (!c.game.running || c.mode == MODE_PLAY);
}

std::string describe(const Controller& c) {
    std::ostringstream s;
    s << "mode " << c.mode << " counter " << c.counter << " menu " << c.menuChoice << " level "
      << c.level << " difficulty " << c.game.difficulty << " throttle " << c.game.player.throttle
      << " timeStep " << c.game.timeStep << " zoomRect " << c.drawView.zoomRect << " viewScale "
      << c.drawView.viewScale << " running " << c.game.running;
    return s.str();
}

class Monkey {
  public:
    explicit Monkey(unsigned seed) : random_(seed) {
        play::seed(seed);
        files_->addEveryPicture();
        for (int n = 0; n <= 8; ++n)
            files_->textFiles["level" + std::to_string(n) + ".txt"] = "Briefing\nof two lines";
        files_->textFiles["levels.txt"] = "One\nTwo\nThree\nFour\nFive\nSix\nSeven\nEight\n";
        files_->textFiles["level3.txt"] = ""; // one briefing empty, one missing
        files_->textFiles.erase("level5.txt");
    }

    // Plays until at least `budget` ticks have passed, stopping at the first broken invariant.
    void play(long budget) {
        while (ticks < budget && failure.empty()) {
            const int roll = pick(0, 999);
            if (roll < 450) // half the presses arrows, so that the menus' choices wander far
                keyDown(pick(0, 1) == 0 ? static_cast<unsigned short>(kKeyUp + pick(0, 3))
                                        : anyKey());
            else if (roll < 750)
                releaseKey();
            else if (roll < 965)
                tick(pick(1, 10));
            else if (roll < 966)
                holdTimeOn();
            else if (roll < 997)
                keeper();
            else
                canvas_.surface = kSurfaces[index(kSurfaces.size())];
        }
    }

    long ticks = 0;
    long keyEvents = 0;
    long ticksAtLongestStep = 0; // flying at a year per second
    std::string failure;         // the first broken invariant
    std::bitset<11> modesSeen;
    std::bitset<9> levelsFlown;       // with the world running
    std::bitset<4> difficultiesFlown; // index 1 to 3

  private:
    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    std::size_t index(std::size_t size) {
        return static_cast<std::size_t>(pick(0, static_cast<int>(size) - 1));
    }
    unsigned short anyKey() { return kKeyPool[index(kKeyPool.size())]; }

    void check(const char* after) {
        if (failure.empty() && !sane(c_))
            failure = describe(c_) + " after " + after + ", tick " + std::to_string(ticks);
    }

    void keyDown(unsigned short key) {
        c_.keyDown(key);
        held_.insert(key);
        ++keyEvents;
        check("a press");
    }

    void keyUp(unsigned short key) {
        c_.keyUp(key);
        held_.erase(key);
        ++keyEvents;
        check("a release");
    }

    // Mostly a key that is down; sometimes one that never was, as after a lost focus.
    void releaseKey() {
        if (!held_.empty() && pick(0, 9) < 7)
            keyUp(*std::next(held_.begin(), pick(0, static_cast<int>(held_.size()) - 1)));
        else
            keyUp(anyKey());
    }

    void tick(int n) {
        for (int i = 0; i < n && failure.empty(); ++i) {
            c_.doFrame();
            c_.needsRedraw = false;
            ++ticks;
            modesSeen.set(static_cast<std::size_t>(c_.mode));
            if (c_.mode == MODE_PLAY && c_.game.running) {
                levelsFlown.set(static_cast<std::size_t>(c_.level));
                ++ticksFlown_[static_cast<std::size_t>(c_.level)];
                ticksAtLongestStep += c_.game.timeStep == 1051200.0;
                difficultiesFlown.set(static_cast<std::size_t>(c_.game.difficulty));
            }
            check("a tick");
            files_->requests.clear();
            play::redraw(c_, canvas_);
            check("a redraw");
        }
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

    // On the set-up screen the keeper keys in the level flown least so far and a difficulty in
    // turn; in flight it meets the level's goal, crashes, or flings the craft away.
    void keeper() {
        if (c_.mode == MODE_CHOICE) {
            const auto least = std::min_element(ticksFlown_.begin() + 1, ticksFlown_.end());
            const int level = static_cast<int>(least - ticksFlown_.begin());
            const int difficulty = 1 + static_cast<int>(keyEvents % 3);
            while (c_.level != level && failure.empty())
                keyDown(kKeyDown);
            while (c_.game.difficulty != difficulty && failure.empty())
                keyDown(kKeyRight);
            keyDown(kKeySpace);
            return;
        }
        if (c_.mode != MODE_PLAY || !c_.game.running)
            return;
        Game& g = c_.game;
        Position& ship = g.player.pos;
        const auto placeOn = [&](const Stellar& body, double offset) {
            ship = body.pos;
            ship.x += offset;
        };
        switch (pick(0, 5)) {
        case 0:
        case 1: // the goal
            if (c_.level == 4 || c_.level == 5)
                placeOn(g.satellite, 0.0);
            else if (c_.level == 6 || (c_.level == 8 && c_.isPartialObjectiveDone))
                placeOn(g.station, 0.0);
            else if (c_.level == 8)
                placeOn(g.asteroid, 200.0);
            else if (c_.level == 1 || c_.level == 2)
                g.player.putInOrbitAround(g.earth, c_.level == 1 ? 8e6 : 4.2e7);
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
        default:
            ship.x = std::numeric_limits<double>::quiet_NaN();
        }
        check("a move of the craft");
    }

    std::mt19937 random_;
    ScopedFakeResources files_;
    RecordingCanvas canvas_;
    std::set<unsigned short> held_;
    std::array<long, 9> ticksFlown_{};
    Controller c_;
};

// Each seed is its own test, so that the runs share the cores: 200,000 ticks in all.
class MonkeyTest : public ::testing::TestWithParam<unsigned> {};

TEST_P(MonkeyTest, EveryModeLevelAndDifficultyWithoutABrokenState) {
    Monkey monkey(GetParam());
    monkey.play(50000);
    ASSERT_EQ(monkey.failure, "");
    // The stream really went everywhere.
    EXPECT_TRUE(monkey.modesSeen.all()) << monkey.modesSeen;
    EXPECT_TRUE(monkey.levelsFlown.all()) << monkey.levelsFlown;
    EXPECT_EQ(monkey.difficultiesFlown.count(), 3u) << monkey.difficultiesFlown;
    EXPECT_GT(monkey.ticksAtLongestStep, 5000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, ::testing::Values(1u, 2u, 3u, 4u));

} // namespace
} // namespace apsis
