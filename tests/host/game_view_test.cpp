#include "control/controller.h"
#include "control/keys.h"
#include "host/game_view.h"
#include "host/main_window.h"
#include "physics/numeric.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QTest>

namespace apsis {
namespace {

// A view in flight in the practice level, world stopped, as after the briefing.
class GameViewTest : public ::testing::Test {
  protected:
    void SetUp() override {
        randSeedSet = true;
        std::srand(3);
        view.resize(800, 600);
        view.controller().startLevel(0);
        view.controller().setMode(MODE_PLAY);
    }
    Controller& game() { return view.controller(); }
    void press(int key, const QString& text) {
        // Each key its own scan code, as on a keyboard.
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, static_cast<quint32>(key & 0xffff),
                        0, 0, text);
        QApplication::sendEvent(&view, &event);
    }
    GameView view;
};

// Tab restarts the level instead of moving the focus. F2 reaches the game like any other key and
// turns the aids on and off.
TEST_F(GameViewTest, TabRestartsAndF2TogglesTheAids) {
    for (const bool expected : {true, false, true}) {
        QTest::keyClick(&view, Qt::Key_F2);
        EXPECT_EQ(game().isShowingNavAids, expected);
    }
    EXPECT_EQ(game().mode, MODE_PLAY);
    EXPECT_FALSE(game().game.running);
    QTest::keyClick(&view, Qt::Key_Tab);
    EXPECT_EQ(game().mode, MODE_RESTART_FADE);
    view.doFrame();
    EXPECT_FALSE(game().needsRedraw); // a tick's request for a whole redraw is the view's to take
}

// A release is held back for a moment, in case an automatic repeat takes it back, and then
// reaches the game without any other event.
TEST_F(GameViewTest, AKeyLetGoIsReleasedByItselfSoon) {
    press(Qt::Key_Up, "");
    ASSERT_TRUE(game().game.player.isAccelerating);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::NoModifier, Qt::Key_Up & 0xffff, 0, 0,
                      "");
    QApplication::sendEvent(&view, &release);
    EXPECT_TRUE(game().game.player.isAccelerating);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !game().game.player.isAccelerating; }, 200));
}

TEST_F(GameViewTest, LosingTheFocusReleasesEveryHeldKey) {
    press(Qt::Key_Up, "");
    press(Qt::Key_X, "x");
    ASSERT_TRUE(game().game.player.isAccelerating && game().isThrottlingUp);
    QFocusEvent focusOut(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&view, &focusOut);
    EXPECT_FALSE(game().game.player.isAccelerating || game().isThrottlingUp);
}

TEST(MainWindowTest, ATitledResizableWindowWithFullScreenAndQuit) {
    MainWindow window;
    EXPECT_EQ(window.windowTitle(), "Apsis");
    EXPECT_GE(window.width(), 640);
    EXPECT_EQ(window.view().minimumSize(), QSize(640, 480));

    QAction *fullScreen = nullptr, *quit = nullptr;
    for (QAction* action : window.actions())
        (action->shortcut() == QKeySequence(Qt::Key_F11) ? fullScreen : quit) = action;
    ASSERT_TRUE(fullScreen && quit && quit->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_Q));
    window.show();
    fullScreen->trigger();
    EXPECT_TRUE(window.windowState() & Qt::WindowFullScreen);
    fullScreen->trigger();
    EXPECT_FALSE(window.windowState() & Qt::WindowFullScreen);
}

} // namespace
} // namespace apsis
