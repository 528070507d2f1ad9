#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include <QImage>
#include <QPainter>

namespace apsis {
namespace {

const std::filesystem::path kResources = APSIS_TEST_RESOURCE_DIR;

// Whole screens of the game drawn as the window draws them, from a copy of the game's resource
// folder that has lost files or parts of them.
class QtScreensTest : public ::testing::Test {
  protected:
    static constexpr int W = 1280;
    static constexpr int H = 800;

    void SetUp() override {
        previous = installResources(std::make_unique<QtResources>(kResources));
    }
    void TearDown() override {
        installResources(std::move(previous));
        if (!damaged.empty())
            std::filesystem::remove_all(damaged);
    }

    // A copy of the pictures and texts, in use from now on, to be damaged.
    void useCopy() {
        damaged =
            std::filesystem::temp_directory_path() /
            ("apsis-damaged-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
        std::filesystem::remove_all(damaged);
        std::filesystem::create_directories(damaged);
        for (const auto& entry : std::filesystem::directory_iterator(kResources)) {
            const auto type = entry.path().extension();
            if (type == ".jpg" || type == ".gif" || type == ".txt")
                std::filesystem::copy_file(entry.path(), damaged / entry.path().filename());
        }
        installResources(std::make_unique<QtResources>(damaged));
    }
    // Keeps the first part of a file, as a download cut short would.
    void truncate(const std::string& file, double fraction) {
        const auto size = std::filesystem::file_size(damaged / file);
        std::filesystem::resize_file(
            damaged / file, static_cast<std::uintmax_t>(static_cast<double>(size) * fraction));
    }

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

    // One redraw of the whole view into the image, black first.
    const QImage& render() {
        image = QImage(W, H, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        QtCanvas canvas(painter);
        CanvasFocus focus(canvas);
        controller->drawRect();
        return image;
    }

    // The colour at a view point, y upwards.
    QColor at(int x, int y) const { return image.pixelColor(x, H - 1 - y); }
    // How many pixels are not black in a rectangle, y downwards.
    int litIn(const QRect& r) const {
        int lit = 0;
        for (int y = r.top(); y <= r.bottom(); ++y)
            for (int x = r.left(); x <= r.right(); ++x)
                lit += image.pixelColor(x, y) != QColor(Qt::black);
        return lit;
    }
    static QRect levelList() { return {W / 2 - 110, H / 2 - 60, 210, 150}; }
    static QRect middle() { return {W / 2 - 100, H / 2 - 100, 200, 200}; }
    static QRect readOuts() { return {10, 10, 250, 60}; }

    std::unique_ptr<Resources> previous;
    std::unique_ptr<Controller> controller = std::make_unique<Controller>();
    std::filesystem::path damaged;
    QImage image;
};

TEST_F(QtScreensTest, MissingTruncatedAndEmptyFilesDrawWhatTheyCan) {
    useCopy();
    controller->setMode(MODE_MENU);
    const QImage whole = render();
    fly(1, 0);
    controller->drawView.viewScale = 3e7; // Earth a few hundred points across
    render();
    EXPECT_GT(litIn(middle()), 30000);

    // Pictures once loaded stay with their bodies: a fresh game loads them from the damaged folder.
    controller = std::make_unique<Controller>();
    for (const char* gone : {"earth.jpg", "splash.jpg", "level1.txt"})
        std::filesystem::remove(damaged / gone);
    truncate("menu.jpg", 0.5);
    truncate("ship.gif", 0.5);
    std::ofstream(damaged / "levels.txt", std::ios::trunc).flush();

    controller->doFrame(); // the intro: the loading bar alone on black
    render();
    EXPECT_EQ(at(W / 4, H / 4 + 4), QColor(Qt::blue));
    EXPECT_EQ(litIn(QRect(0, 0, W, H / 2)), 0);
    // The part of the menu picture that was read is drawn as before.
    controller->setMode(MODE_MENU);
    render();
    EXPECT_TRUE(image.copy(0, 0, W, H / 10) == whole.copy(0, 0, W, H / 10));
    EXPECT_FALSE(image == whole);
    controller->setMode(MODE_CHOICE); // the panel, without the list of levels
    render();
    EXPECT_EQ(at(W / 2 - 190, H / 2), QColor(Qt::white));
    EXPECT_EQ(litIn(levelList()), 0);
    controller->startLevel(1); // a briefing without its text: the panel shrunk to 30 by 70 points
    render();
    EXPECT_EQ(at(W / 2 - 15, H / 2), QColor(Qt::white));
    EXPECT_EQ(at(W / 2 - 17, H / 2), QColor(Qt::black));
    fly(1, 0);
    controller->drawView.viewScale = 3e7;
    render();
    EXPECT_EQ(litIn(middle()), 0); // Earth is not there to see; the display still is
    EXPECT_GT(litIn(readOuts()), 50);

    // Fades cover the whole scene, the gauges too: half way to white, then half way to black.
    controller->setMode(MODE_RESTART_FADE);
    controller->counter = 4;
    render();
    EXPECT_NEAR(at(W - 15, 40).green(), 255, 1);
    EXPECT_NEAR(at(W - 15, 40).red(), 128, 2);
    controller->setMode(MODE_LEVEL_COMPLETE);
    controller->counter = 190;
    render();
    EXPECT_NEAR(at(W - 15, 40).green(), 128, 2);
}

} // namespace
} // namespace apsis
