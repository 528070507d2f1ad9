#include "control/controller.h"
#include "host/game_view.h"
#include "physics/numeric.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include <QTest>

namespace apsis {
namespace {

// F2 is the window's: in flight it turns the aids on and off and nothing else; elsewhere it does
// nothing at all. No game key is pressed or held on its way.
TEST(NavKey, F2TogglesTheAidsInFlightOnlyAndReachesNoGameKey) {
    randSeedSet = true;
    std::srand(3);
    GameView view;
    Controller& c = view.controller();
    c.startLevel(1);
    QTest::keyClick(&view, Qt::Key_F2);
    EXPECT_FALSE(c.isShowingNavAids);
    EXPECT_EQ(c.mode, MODE_LEVEL); // any game key would have left the briefing
    c.setMode(MODE_PLAY);
    for (const bool expected : {true, false, true}) {
        QTest::keyClick(&view, Qt::Key_F2);
        EXPECT_EQ(c.isShowingNavAids, expected);
    }
    EXPECT_EQ(c.mode, MODE_PLAY);
    EXPECT_FALSE(c.game.running);
}

} // namespace
} // namespace apsis
