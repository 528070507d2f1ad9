#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

#include <QImage>
#include <QPainter>

namespace apsis {
namespace {

// Whole screens of the game drawn as the window draws them, with the game's own pictures, and
// the pixels that must be there whatever the art looks like.
class QtScreensTest : public ::testing::Test {
  protected:
    static constexpr int W = 1280;
    static constexpr int H = 800;

    void SetUp() override {
        previous = installResources(std::make_unique<QtResources>(APSIS_TEST_RESOURCE_DIR));
        controller = std::make_unique<Controller>();
    }
    void TearDown() override { installResources(std::move(previous)); }

    // A level in flight with a fixed layout: briefing dismissed, world started, a few ticks.
    void fly(int level, int ticks) {
        randSeedSet = true;
        std::srand(static_cast<unsigned>(level));
        controller->startLevel(level);
        controller->keyDown(kKeySpace);
        controller->keyDown(kKeySpace);
        for (int i = 0; i < ticks; ++i)
            controller->doFrame();
        ASSERT_EQ(controller->mode, MODE_PLAY);
    }

    // One redraw: black, then the controller's drawing.
    void render() {
        image = QImage(W, H, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        QtCanvas canvas(painter);
        CanvasFocus focus(canvas);
        controller->drawRect();
    }

    // The colour at a view point, y upwards.
    QColor at(int x, int y) const { return image.pixelColor(x, H - 1 - y); }
    // How many pixels of a row of the view, between two x, have exactly this colour.
    int countInRow(int y, int fromX, int toX, const QColor& colour) const {
        int n = 0;
        for (int x = fromX; x < toX; ++x)
            n += at(x, y) == colour;
        return n;
    }

    std::unique_ptr<Resources> previous;
    std::unique_ptr<Controller> controller;
    QImage image;
};

TEST_F(QtScreensTest, FlightShowsTheGaugesAndTheScaleBar) {
    fly(1, 5);
    controller->game.player.throttle = 1.0;
    render();
    // A full throttle: the 148-point trough green from end to end inside its blue frame.
    EXPECT_EQ(countInRow(H - 66, W - 160, W - 10, QColor(Qt::green)), 148);
    EXPECT_EQ(at(W - 160, H - 66), QColor(Qt::blue));
    EXPECT_EQ(at(W - 11, H - 66), QColor(Qt::blue));
    // The full fuel gauge at the right edge, green from its bottom.
    EXPECT_EQ(at(W - 16, 40), QColor(Qt::green));
    EXPECT_EQ(at(W - 20, 40), QColor(Qt::blue));
    // The scale bar's line runs across the bottom in light grey.
    int grey = 0;
    for (int x = 60; x < W - 60; x += 10)
        grey += at(x, 15).red() > 40 || at(x, 14).red() > 40;
    EXPECT_EQ(grey, (W - 120) / 10);
    // The read-outs: green ink in the top-left and top-right corners.
    int ink = 0;
    for (int x = 10; x < 200; ++x)
        ink += at(x, H - 17).green() > 64;
    EXPECT_GT(ink, 10);
}

TEST_F(QtScreensTest, BannersAndThePausePromptStandWhereTheyBelong) {
    fly(5, 3);
    controller->game.player.fuel = 0.0;
    controller->game.elapsedTime = controller->game.timeLimit + 60.0;
    controller->keyDown(kKeySpace); // paused
    render();
    // Two red banners, the fuel one 20 points above the time one, just above their points.
    EXPECT_GT(countInRow(H * 5 / 8 + 22, W / 2 - 100, W / 2 + 100, QColor(Qt::red)), 40);
    EXPECT_GT(countInRow(H * 5 / 8 + 2, W / 2 - 100, W / 2 + 100, QColor(Qt::red)), 60);
    EXPECT_EQ(at(W / 2, H * 5 / 8 - 2), QColor(Qt::black));
    // The pause prompt's dark grey box is centred at 60% of the height.
    EXPECT_GT(countInRow(H * 6 / 10, W / 2 - 150, W / 2 + 150, QColor(51, 51, 51)), 20);
    EXPECT_EQ(at(W / 2 - 200, H * 6 / 10), QColor(Qt::black));
}

TEST_F(QtScreensTest, AMessageOnBlackAfterACrash) {
    fly(1, 3);
    controller->setMode(MODE_COLLISION);
    render();
    int red = 0, other = 0;
    for (int y = 0; y < H; ++y) {
        for (int x = 0; x < W; ++x) {
            const QColor c = at(x, y);
            if (c == QColor(Qt::black))
                continue;
            const bool nearMiddle = std::abs(x - W / 2) < 150 && std::abs(y - H / 2 - 8) < 20;
            (nearMiddle && c.green() == 0 && c.blue() == 0 ? red : other) += 1;
        }
    }
    EXPECT_GT(red, 50);
    EXPECT_EQ(other, 0);
}

TEST_F(QtScreensTest, FadesCoverTheWholeScene) {
    fly(1, 3);
    controller->setMode(MODE_RESTART_FADE);
    controller->counter = 4; // half way to white
    render();
    EXPECT_NEAR(at(100, H / 2).red(), 128, 2);
    EXPECT_NEAR(at(W - 15, 40).green(), 255, 1); // the fuel gauge, paled
    EXPECT_NEAR(at(W - 15, 40).red(), 128, 2);

    controller->setMode(MODE_LEVEL_COMPLETE);
    controller->counter = 190; // half way to black
    render();
    EXPECT_NEAR(at(W - 15, 40).green(), 128, 2);
    EXPECT_EQ(at(W - 15, 40).red(), 0);
}

TEST_F(QtScreensTest, TheIntroBarGrowsWithTheCount) {
    for (int i = 0; i < 5; ++i)
        controller->doFrame();
    render();
    const int y = H / 4 + 4;
    // 5/9 of 298 points of green inside the blue-framed bar.
    EXPECT_NEAR(countInRow(y, W / 4, W * 3 / 4, QColor(Qt::green)), 298 * 5 / 9, 1);
    EXPECT_EQ(at(W / 4, y), QColor(Qt::blue));
}

TEST_F(QtScreensTest, DeepZoomAtTheStartOfLevel7DrawsTheDisplayOverTheStation) {
    fly(7, 1);
    ASSERT_EQ(controller->drawView.viewScale, 200.0);
    render();
    EXPECT_EQ(countInRow(H - 66, W - 160, W - 10, QColor(Qt::green)), 148);
    // Something is drawn in the middle of the view: the station the craft starts at.
    int lit = 0;
    for (int x = W / 2 - 100; x < W / 2 + 100; ++x)
        lit += at(x, H / 2) != QColor(Qt::black);
    EXPECT_GT(lit, 100);
}

} // namespace
} // namespace apsis
