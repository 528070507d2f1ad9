#include "control/nav_findings.h"
#include "control/nav_path.h"
#include "control/play.h"
#include "physics/numeric.h"
#include "support/fake_resources.h"
#include "world/bodies.h"
#include "world/levels.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace apsis {
namespace {

// The whole path from the world as it is, for the level's goal as the aids ask, or for none; or
// only as far as it reaches, before the fine path fills it in.
PathResult findWhole(const Controller& c, bool forGoal = false, bool isFarEnough = false) {
    const Stellar* goal =
        forGoal ? targetOf(c.game, levelAt(c.level), c.isPartialObjectiveDone) : nullptr;
    PathRequest ask{c.game, c.level, orbitCentreOf(c.game, c.drawView.viewTarget),
                    goal != nullptr ? bodyIndex(c.game, *goal) : -1, std::nullopt};
    PathFinder finder(ask);
    while (finder.advance(1000) && !(isFarEnough && finder.result().isFar)) {
    }
    return finder.result();
}

// Where the coarse path reaches further than the game's own step would in time, its places stay
// within a thousandth of the distance to the body the craft turns round from the places the game
// will fly through, over a whole turn, in every level that opens round Earth.
TEST(PathFinder, TheCoarsePathStaysWithinAThousandthOfTheFineOne) {
    ScopedFakeResources files;
    int coarseLevels = 0;
    for (int level = 1; level <= 6; ++level) {
        Controller c;
        flySeeded(c, level, 7);
        const PathResult path = findWhole(c);
        ASSERT_TRUE(path.isFar && !path.isCutShort) << level;
        if (path.coarse.empty())
            continue;
        ++coarseLevels;
        const int centre = orbitCentreOf(c.game, c.drawView.viewTarget);
        const double step = c.game.timeStep;
        const double start = path.fine.front().elapsed;
        int compared = 0;
        for (const PathSample& far : path.coarse) {
            const auto k = static_cast<std::size_t>(std::lround((far.elapsed - start) / step));
            ASSERT_LT(k, path.fine.size()) << level; // the fine path fills in the whole turn
            const PathSample& near = path.fine[k];
            ASSERT_NEAR(near.elapsed, far.elapsed, 1e-6 * far.elapsed) << level;
            const double r =
                std::hypot(near.craft.x - near.bodyX[centre], near.craft.y - near.bodyY[centre]);
            EXPECT_LT(std::hypot(far.craft.x - near.craft.x, far.craft.y - near.craft.y), 1e-3 * r)
                << "level " << level << " at " << far.elapsed - start << " s";
            ++compared;
        }
        EXPECT_GT(compared, 60) << level;
    }
    EXPECT_GE(coarseLevels, 4);
}

// Entered far from its low point, an eccentric orbit's coarse path still shortens its steps as
// the craft falls: no chord of it cuts in towards Earth by more than a hundredth of the craft's
// distance, so none crosses the planet or skips the low point.
TEST(PathFinder, CoarseStepsShortenAgainTowardsTheLowPoint) {
    ScopedFakeResources files;
    Controller c;
    flySeeded(c, 1, 7);
    Position& craft = c.game.player.pos;
    const Position& earth = c.game.earth.pos;
    const double grown = (std::hypot(craft.vx - earth.vx, craft.vy - earth.vy) + 1500) /
                         std::hypot(craft.vx - earth.vx, craft.vy - earth.vy);
    craft.vx = earth.vx + grown * (craft.vx - earth.vx);
    craft.vy = earth.vy + grown * (craft.vy - earth.vy);
    c.game.timeStep = 5;
    play::ticks(c, 1300); // about half a turn: near the high point
    const PathResult path = findWhole(c);
    ASSERT_GT(path.coarse.size(), 60u);
    const int e = bodyIndex(c.game, c.game.earth);
    for (std::size_t k = 1; k < path.coarse.size(); ++k) {
        const PathSample& s = path.coarse[k - 1];
        const PathSample& t = path.coarse[k];
        const double ax = s.craft.x - s.bodyX[e], ay = s.craft.y - s.bodyY[e];
        const double bx = t.craft.x - t.bodyX[e], by = t.craft.y - t.bodyY[e];
        // The chord's nearest point to Earth's centre.
        const double dx = bx - ax, dy = by - ay;
        const double f = std::clamp(-(ax * dx + ay * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        const double nearest = std::hypot(ax + f * dx, ay + f * dy);
        ASSERT_GT(nearest, 0.99 * std::min(std::hypot(ax, ay), std::hypot(bx, by)))
            << "the chord from " << s.elapsed << " s to " << t.elapsed << " s";
    }
}

// The path reaches its horizon, not a limit, at every level's opening and far out. Where the
// craft's orbit keeps it far from its goal (the Moon, Mars, the satellite sunwards, the station
// round the Moon wherever it is on its orbit, an asteroid still far out) two turns are its horizon;
// a goal on the craft's own orbit is looked for up to the level's time limit; a body falling past
// or passed on the way out, until it lies behind; and far out round the Sun, the path looks ahead
// as far as its cap in time.
TEST(PathFinder, ThePathReachesItsHorizonNotALimit) {
    ScopedFakeResources files;
    const auto days = [](const PathResult& path) {
        const PathSample& end = path.coarse.empty() ? path.fine.back() : path.coarse.back();
        return (end.elapsed - path.fine.front().elapsed) / 86400;
    };
    for (int level = 1; level < kLevelCount; ++level) {
        for (const unsigned seed : {1u, 2u, 3u}) {
            if (seed > 1 && level != 6)
                continue; // the station elsewhere round the Moon, and moving otherwise
            Controller c;
            flySeeded(c, level, seed);
            const PathResult path = findWhole(c, true, true);
            ASSERT_TRUE(path.isFar && !path.isCutShort) << "level " << level << " seed " << seed;
            if (level == 5) {
                EXPECT_GE(days(path) * 86400, c.game.timeLimit);
            } else if (level >= 3) {
                EXPECT_LT(days(path), 2.1) << "level " << level << " seed " << seed;
            }
        }
    }
    // The asteroid three million km out, falling straight at Earth: its pass lies days beyond the
    // two turns, and the path reaches it.
    Controller c;
    flySeeded(c, 8, 1);
    Position& rock = c.game.asteroid.pos;
    const Position& earth = c.game.earth.pos;
    rock.x = earth.x + 3e9;
    rock.y = earth.y + 2e8;
    rock.vx = earth.vx - 1e4;
    rock.vy = earth.vy;
    const PathResult path = findWhole(c, true, true);
    ASSERT_TRUE(path.isFar && !path.isCutShort);
    EXPECT_GT(days(path), 3.6);

    // A craft leaving Earth for good past the Moon, its goal: never turning round Earth, it is
    // far enough once the Moon lies behind.
    Controller out;
    flySeeded(out, 3, 1);
    Position& craft = out.game.player.pos;
    const Position& moon = out.game.moon.pos;
    craft.x = moon.x - 2e8;
    craft.y = moon.y + 8e7;
    craft.vx = out.game.earth.pos.vx + 3e3;
    craft.vy = out.game.earth.pos.vy;
    const PathResult past = findWhole(out, true, true);
    ASSERT_TRUE(past.isFar && !past.isCutShort) << days(past);
    EXPECT_EQ(past.impactBody, -1) << days(past);
    EXPECT_LT(days(past), 5);

    // A craft on its own round the Sun, Mars on the far side: the path looks ahead as far as its
    // cap in time, which is its horizon, not a limit that cut it short.
    Controller alone;
    flySeeded(alone, 7, 1);
    alone.drawView.viewTarget = alone.game.sun;
    Position& lone = alone.game.player.pos;
    const Position& sun = alone.game.sun.pos;
    const Position& far = alone.game.mars.pos;
    const double away = std::atan2(far.y - sun.y, far.x - sun.x) + kPi;
    const double speed = std::sqrt(G * alone.game.sun.mass / 2e11);
    lone.x = sun.x + 2e11 * std::cos(away);
    lone.y = sun.y + 2e11 * std::sin(away);
    lone.vx = sun.vx - speed * std::sin(away);
    lone.vy = sun.vy + speed * std::cos(away);
    const PathResult longest = findWhole(alone, true, true);
    ASSERT_TRUE(longest.isFar && !longest.isCutShort) << days(longest);
    EXPECT_GE(days(longest), PathFinder::kLongestLook / 86400);
}

// A path not yet found beyond the craft's place now tells of the closest approach only that it
// lies beyond: not that it is now.
TEST(NavAids, ClosestApproachOfAPathNotYetFoundLiesBeyondIt) {
    ScopedFakeResources files;
    seedRandomAngles(5);
    Game game;
    game.setLevel(5);
    const PathSample now = sampleOf(game);
    NavAids aids;
    findApproach(aids, game, game.satellite, game.earth, {&now}, bodyIndex(game, game.earth));
    EXPECT_TRUE(aids.approach.isShown && aids.approach.isBeyondPath);
}

} // namespace
} // namespace apsis
