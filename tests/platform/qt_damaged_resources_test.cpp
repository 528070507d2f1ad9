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

// The real game drawing through Qt from a resource folder that has lost files or parts of them:
// it runs, and draws what it can.
class DamagedResourcesTest : public ::testing::Test {
  protected:
    static constexpr int W = 800;
    static constexpr int H = 600;

    void SetUp() override {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 (std::string("apsis-damaged-") + test->name() + "-" +
                  std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        for (const auto& entry : std::filesystem::directory_iterator(APSIS_TEST_RESOURCE_DIR)) {
            const auto type = entry.path().extension();
            if (type == ".jpg" || type == ".gif" || type == ".txt")
                std::filesystem::copy_file(entry.path(), folder / entry.path().filename());
        }
        useFolder(folder);
        randSeedSet = true;
        std::srand(5);
    }
    void TearDown() override {
        installResources(std::move(previous));
        std::filesystem::remove_all(folder);
    }

    void useFolder(const std::filesystem::path& from) {
        auto loader = std::make_unique<QtResources>(from);
        auto replaced = installResources(std::move(loader));
        if (!previous)
            previous = std::move(replaced);
    }
    void write(const std::string& file, const std::string& bytes) {
        std::ofstream(folder / file, std::ios::binary | std::ios::trunc) << bytes;
    }
    // Keeps the first part of a file, as a download cut short would.
    void truncate(const std::string& file, double fraction) {
        const auto size = std::filesystem::file_size(folder / file);
        std::filesystem::resize_file(
            folder / file, static_cast<std::uintmax_t>(static_cast<double>(size) * fraction));
    }

    // One redraw into an image of the given size, on a canvas that says it is `surface` big.
    QImage render(int width, int height, Size surface) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        QtCanvas canvas(painter, surface);
        CanvasFocus focus(canvas);
        controller->drawRect();
        return image;
    }
    QImage render() { return render(W, H, {W, H}); }

    // From the briefing into flight with the world running, before its first step: no pause
    // prompt in the middle of the view.
    void toFlight(int level) {
        controller->startLevel(level);
        controller->keyDown(kKeySpace);
        controller->keyDown(kKeySpace);
        ASSERT_EQ(controller->mode, MODE_PLAY);
    }

    // Where the set-up screen lists the levels, y downwards.
    static QRect levelList() { return {W / 2 - 110, H / 2 - 60, 210, 150}; }

    // The colour at a view point, y upwards.
    static QColor at(const QImage& image, int x, int y) {
        return image.pixelColor(x, image.height() - 1 - y);
    }
    static int litIn(const QImage& image, const QRect& r) {
        int lit = 0;
        for (int y = r.top(); y <= r.bottom(); ++y)
            for (int x = r.left(); x <= r.right(); ++x)
                lit += image.pixelColor(x, y) != QColor(Qt::black);
        return lit;
    }

    std::filesystem::path folder;
    std::unique_ptr<Resources> previous;
    std::unique_ptr<Controller> controller = std::make_unique<Controller>();
};

TEST_F(DamagedResourcesTest, WithoutAResourceFolderTheScreensKeepTheirShapesAndTexts) {
    useFolder(folder / "nowhere");

    // The intro: the loading bar on black.
    controller->doFrame();
    QImage image = render();
    EXPECT_EQ(at(image, W / 4, H / 4 + 4), QColor(Qt::blue));
    EXPECT_EQ(litIn(image, QRect(0, 0, W, H / 2)), 0);

    // The menu: nothing at all to draw.
    for (int i = 0; i < 10; ++i)
        controller->doFrame();
    ASSERT_EQ(controller->mode, MODE_MENU);
    EXPECT_EQ(litIn(render(), QRect(0, 0, W, H)), 0);

    // The set-up screen: its panel, without the list of levels.
    controller->setMode(MODE_CHOICE);
    image = render();
    EXPECT_EQ(at(image, W / 2 - 190, H / 2), QColor(Qt::white));
    EXPECT_EQ(litIn(image, levelList()), 0);

    // A briefing without its text: the panel shrunk to 30 by 70 points about the middle.
    controller->startLevel(1);
    image = render();
    EXPECT_EQ(at(image, W / 2 - 15, H / 2), QColor(Qt::white));
    EXPECT_EQ(at(image, W / 2 - 17, H / 2), QColor(Qt::black));

    // Flight: no body has a picture to show, but the display reads.
    toFlight(1);
    image = render();
    EXPECT_GT(litIn(image, QRect(10, 10, 250, 60)), 50);
    EXPECT_EQ(litIn(image, QRect(W / 2 - 60, H / 2 - 60, 120, 120)), 0);
}

TEST_F(DamagedResourcesTest, AMissingPictureATruncatedOneAndEmptyTexts) {
    // Before the damage: the list of levels, and Earth in the middle of the view.
    controller->setMode(MODE_CHOICE);
    EXPECT_GT(litIn(render(), levelList()), 500);
    toFlight(1);
    controller->drawView.viewScale = 3e7; // Earth 340 points across
    EXPECT_GT(litIn(render(), QRect(W / 2 - 100, H / 2 - 100, 200, 200)), 30000);
    controller->setMode(MODE_MENU);
    const QImage whole = render();

    // Pictures once loaded stay with their bodies: a fresh game loads them from the damaged folder.
    controller = std::make_unique<Controller>();
    std::filesystem::remove(folder / "earth.jpg");
    truncate("menu.jpg", 0.5);
    truncate("ship.gif", 0.5);
    write("levels.txt", "");
    write("level1.txt", "");

    // The part of the menu picture that was read is drawn as before.
    controller->setMode(MODE_MENU);
    const QImage cut = render();
    EXPECT_TRUE(cut.copy(0, 0, W, H / 10) == whole.copy(0, 0, W, H / 10));
    EXPECT_FALSE(cut == whole);

    controller->setMode(MODE_CHOICE);
    const QImage choice = render();
    EXPECT_EQ(at(choice, W / 2 - 190, H / 2), QColor(Qt::white));
    EXPECT_EQ(litIn(choice, levelList()), 0);

    controller->startLevel(1);
    const QImage briefing = render();
    EXPECT_EQ(at(briefing, W / 2 - 15, H / 2), QColor(Qt::white));

    // Earth, which the camera starts on, is not there to see; the display still is.
    toFlight(1);
    controller->drawView.viewScale = 3e7;
    const QImage flight = render();
    EXPECT_EQ(litIn(flight, QRect(W / 2 - 100, H / 2 - 100, 200, 200)), 0);
    EXPECT_GT(litIn(flight, QRect(10, 10, 250, 60)), 50);
}

TEST_F(DamagedResourcesTest, AFlungCraftAndTheEndsOfTheZoomOnTinyAndLargeViews) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        const char* what;
        double dx;    // added to the craft's place, m
        double dvx;   // added to its velocity, m/s
        double scale; // m across the view
    };
    const Case cases[] = {
        {"1e30 m out", 1e30, 0.0, 1e9},
        {"1e300 m/s", 0.0, 1e300, 1e9},
        {"nowhere", kNaN, 0.0, 1e9},
        {"zoomed out to the largest double", 0.0, 0.0, std::numeric_limits<double>::max()},
        {"zoomed in to the smallest", 0.0, 0.0, std::numeric_limits<double>::denorm_min()},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        controller = std::make_unique<Controller>();
        toFlight(0);
        controller->game.player.pos.x += k.dx;
        controller->game.player.pos.vx += k.dvx;
        controller->drawView.viewScale = k.scale;
        controller->game.timeStep = 1051200.0;
        for (int tick = 0; tick < 3; ++tick) {
            controller->doFrame();
            // A view of one point, one of no width, and a whole one.
            render(1, 1, {1, 1});
            render(W, H, {0, H});
            EXPECT_GT(litIn(render(), QRect(10, 10, 250, 60)), 50);
        }
    }
}

} // namespace
} // namespace apsis
