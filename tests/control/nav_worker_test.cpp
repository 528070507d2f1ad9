#include "control/burn_plan.h"
#include "control/nav_findings.h"
#include "control/nav_worker.h"
#include "control/play.h"
#include "support/fake_resources.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

// a is b, or the start of it.
bool sameSamples(const std::vector<PathSample>& a, const std::vector<PathSample>& b) {
    if (a.empty() || a.size() > b.size())
        return false;
    for (std::size_t k = 0; k < a.size(); ++k) {
        if (a[k].craft.x != b[k].craft.x || a[k].craft.y != b[k].craft.y ||
            a[k].elapsed != b[k].elapsed)
            return false;
    }
    return true;
}

// The worker finds exactly the path the caller's own thread finds, its fine part only a little
// ahead of the world; a new request drops the work in hand, so that what it hands over is always
// for the latest one; it stops and starts again.
TEST(PathWorker, FindsTheSamePathAndOnlyForTheLatestRequest) {
    ScopedFakeResources files;
    Controller c;
    flySeeded(c, 2, 3);
    const PathRequest ask{c.game, 2, orbitCentreOf(c.game, c.drawView.viewTarget), -1,
                          std::nullopt};
    PathFinder here(ask);
    while (here.advance(1000)) {
    }
    PathWorker worker;
    for (int round = 0; round < 2; ++round) {
        PathRequest older = ask;
        older.world.player.pos.vx += 100.0;
        worker.start(older);
        worker.start(ask);
        // Taken while the worker goes on: each hand-over is a whole stretch, never less than the
        // one before.
        std::size_t seen = 0;
        for (auto part = worker.latest(); !part || !(part->isComplete || part->isWaiting);
             part = worker.latest()) {
            if (part) {
                ASSERT_GE(part->fine.size() + part->coarse.size(), seen);
                seen = part->fine.size() + part->coarse.size();
            }
        }
        worker.wait();
        const auto found = worker.latest();
        ASSERT_NE(found, nullptr);
        // The fine path only as far ahead of the world (at its start) as it is worth finding.
        EXPECT_TRUE(found->isWaiting);
        EXPECT_EQ(found->fine.size(), PathFinder::kFineAhead + 1);
        EXPECT_TRUE(sameSamples(found->fine, here.result().fine));
        EXPECT_TRUE(sameSamples(found->coarse, here.result().coarse));
        worker.stop();
        EXPECT_EQ(worker.latest(), nullptr);
    }
}

// In the game the path is found on the worker; the craft left alone still flies through it to
// the last bit. Turning the aids off or a new attempt stops and joins the worker.
TEST(PathWorker, TheGamesCraftFliesAlongWhatTheWorkerFound) {
    ScopedFakeResources files;
    Controller c;
    c.navPrediction.useWorkerThread(true);
    flySeeded(c, 1, 9);
    play::press(c, kKeyF2);
    c.keyDown(kKeyUp);
    play::ticks(c, 4);
    c.keyUp(kKeyUp);
    play::ticks(c, 2);
    c.navPrediction.settle();
    play::ticks(c, 1);
    std::vector<PathSample> path;
    for (const PathSample* place : c.navPrediction.path())
        path.push_back(*place);
    ASSERT_GT(path.size(), 40u);
    for (std::size_t k = 1; k < 40; ++k) {
        c.doFrame();
        ASSERT_EQ(c.game.player.pos.x, path[k].craft.x) << k;
        ASSERT_EQ(c.game.player.pos.y, path[k].craft.y) << k;
    }
    // The worker stops with the aids, and with the attempt.
    EXPECT_TRUE(c.navPrediction.isLookingAhead());
    play::press(c, kKeyF2);
    EXPECT_FALSE(c.navPrediction.isLookingAhead());
    EXPECT_EQ(c.navPrediction.found(), nullptr);
    play::press(c, kKeyF2);
    play::ticks(c, 2);
    EXPECT_TRUE(c.navPrediction.isLookingAhead());
    c.startLevel(2);
    EXPECT_FALSE(c.navPrediction.isLookingAhead());
}

// A planned burn's path is found on the worker as on the caller's thread, the burn flown there
// first: the same places to the last bit.
TEST(PathWorker, FliesAPlannedBurnAsTheCallersThreadWould) {
    ScopedFakeResources files;
    Controller c;
    flySeeded(c, 2, 3);
    play::press(c, kKeyF7);
    c.plan.along = 200;
    PlannedPath here, there;
    there.useWorkerThread(true);
    for (PlannedPath* path : {&here, &there}) {
        path->request(c.game, 2, c.plan, -1);
        path->settle();
    }
    ASSERT_NE(there.found(), nullptr);
    EXPECT_GT(there.found()->burn.size(), 60u);
    EXPECT_TRUE(sameSamples(there.found()->burn, here.found()->burn));
    EXPECT_TRUE(sameSamples(there.found()->fine, here.found()->fine));
}

} // namespace
} // namespace apsis
