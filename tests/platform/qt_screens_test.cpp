#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>

#include <QImage>
#include <QPainter>

namespace apsis {
namespace {

const std::filesystem::path kResources = APSIS_TEST_RESOURCE_DIR;

// Whole screens of the game drawn as the window draws them, from the game's own resource folder
// or from one that has lost files or parts of them, and the pixels that must be there whatever
// the art looks like.
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

    void useFolder(const std::filesystem::path& from) {
        installResources(std::make_unique<QtResources>(from));
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
        useFolder(damaged);
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

    // One redraw into the image, black first, on a canvas that says it is `surface` big.
    const QImage& render(int width, int height, Size surface) {
        image = QImage(width, height, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        QtCanvas canvas(painter, surface);
        CanvasFocus focus(canvas);
        controller->drawRect();
        return image;
    }
    const QImage& render() { return render(W, H, {W, H}); }

    // The colour at a view point, y upwards.
    QColor at(int x, int y) const { return image.pixelColor(x, H - 1 - y); }
    // How many pixels of a row of the view, between two x, have exactly this colour.
    int countInRow(int y, int fromX, int toX, const QColor& colour) const {
        int n = 0;
        for (int x = fromX; x < toX; ++x)
            n += at(x, y) == colour;
        return n;
    }
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

TEST_F(QtScreensTest, FlightCrashAndFadesDrawOverTheWholeView) {
    fly(1, 5);
    render();
    EXPECT_GT(litIn(readOuts()), 50);

    // After a crash: a red message in the middle, on black.
    controller->setMode(MODE_COLLISION);
    render();
    int red = 0, other = 0;
    for (int y = 0; y < H; ++y) {
        for (int x = 0; x < W; ++x) {
            const QColor c = at(x, y);
            const bool nearMiddle = std::abs(x - W / 2) < 150 && std::abs(y - H / 2 - 8) < 20;
            if (c != QColor(Qt::black))
                (nearMiddle && c.green() == 0 && c.blue() == 0 ? red : other) += 1;
        }
    }
    EXPECT_GT(red, 50);
    EXPECT_EQ(other, 0);

    // Fades cover the whole scene, the gauges too.
    controller->setMode(MODE_RESTART_FADE);
    controller->counter = 4; // half way to white
    render();
    EXPECT_NEAR(at(W - 15, 40).green(), 255, 1);
    EXPECT_NEAR(at(W - 15, 40).red(), 128, 2);
    controller->setMode(MODE_LEVEL_COMPLETE);
    controller->counter = 190; // half way to black
    render();
    EXPECT_NEAR(at(W - 15, 40).green(), 128, 2);

    // Deep zoom at the start of level 7: the station and the craft across the middle.
    controller = std::make_unique<Controller>();
    fly(7, 1);
    render();
    EXPECT_GT(W - countInRow(H / 2, 0, W, QColor(Qt::black)), 100);
}

TEST_F(QtScreensTest, WithoutAResourceFolderTheScreensKeepTheirShapesAndTexts) {
    useFolder(kResources / "nowhere");
    controller->doFrame(); // the intro: the loading bar on black
    render();
    EXPECT_EQ(at(W / 4, H / 4 + 4), QColor(Qt::blue));
    EXPECT_EQ(litIn(QRect(0, 0, W, H / 2)), 0);
    for (int i = 0; i < 10; ++i)
        controller->doFrame();
    ASSERT_EQ(controller->mode, MODE_MENU);
    render();
    EXPECT_EQ(litIn(QRect(0, 0, W, H)), 0); // the menu has nothing at all to draw

    // The set-up screen: its panel, without the list of levels.
    controller->setMode(MODE_CHOICE);
    render();
    EXPECT_EQ(at(W / 2 - 190, H / 2), QColor(Qt::white));
    EXPECT_EQ(litIn(levelList()), 0);
    // A briefing without its text: the panel shrunk to 30 by 70 points about the middle.
    controller->startLevel(1);
    render();
    EXPECT_EQ(at(W / 2 - 15, H / 2), QColor(Qt::white));
    EXPECT_EQ(at(W / 2 - 17, H / 2), QColor(Qt::black));
    // Flight: no body has a picture to show, but the display reads.
    fly(1, 0);
    render();
    EXPECT_GT(litIn(readOuts()), 50);
    EXPECT_EQ(litIn(middle()), 0);
}

TEST_F(QtScreensTest, AMissingPictureATruncatedOneAndEmptyTextsDrawWhatTheyCan) {
    useCopy();
    controller->setMode(MODE_MENU);
    const QImage whole = render();
    fly(1, 0);
    controller->drawView.viewScale = 3e7; // Earth a few hundred points across
    render();
    EXPECT_GT(litIn(middle()), 30000);

    // Pictures once loaded stay with their bodies: a fresh game loads them from the damaged folder.
    controller = std::make_unique<Controller>();
    std::filesystem::remove(damaged / "earth.jpg");
    truncate("menu.jpg", 0.5);
    truncate("ship.gif", 0.5);
    std::ofstream(damaged / "levels.txt", std::ios::trunc).flush();

    // The part of the menu picture that was read is drawn as before.
    controller->setMode(MODE_MENU);
    render();
    EXPECT_TRUE(image.copy(0, 0, W, H / 10) == whole.copy(0, 0, W, H / 10));
    EXPECT_FALSE(image == whole);
    controller->setMode(MODE_CHOICE);
    render();
    EXPECT_EQ(litIn(levelList()), 0);
    fly(1, 0);
    controller->drawView.viewScale = 3e7;
    render();
    EXPECT_EQ(litIn(middle()), 0); // Earth is not there to see; the display still is
    EXPECT_GT(litIn(readOuts()), 50);
}

TEST_F(QtScreensTest, AFlungCraftAndTheEndsOfTheZoomOnTinyAndLargeViews) {
    const struct {
        double dx;    // added to the craft's place, m
        double scale; // m across the view
    } cases[] = {
        {1e30, 1e9},
        {std::numeric_limits<double>::quiet_NaN(), 1e9},
        {0.0, std::numeric_limits<double>::max()},
        {0.0, std::numeric_limits<double>::denorm_min()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.dx << " m out, " << c.scale << " m across");
        controller = std::make_unique<Controller>();
        fly(0, 0);
        controller->game.player.pos.x += c.dx;
        controller->game.player.pos.vx += 1e300;
        controller->drawView.viewScale = c.scale;
        controller->game.timeStep = 1051200.0;
        for (int tick = 0; tick < 2; ++tick) {
            controller->doFrame();
            render(1, 1, {1, 1}); // a view of one point, one of no width, and a whole one
            render(W, H, {0, H});
            render();
            EXPECT_GT(litIn(readOuts()), 50);
        }
    }
}

} // namespace
} // namespace apsis
