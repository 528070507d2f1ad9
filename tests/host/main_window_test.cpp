#include "host/game_view.h"
#include "host/main_window.h"

#include <gtest/gtest.h>

#include <QScreen>

namespace apsis {
namespace {

// On any screen the window fits, frame included: a scaled-up or small screen gets a smaller
// window and a smaller minimum; a large one the usual 1280x800 and 640x480.
TEST(MainWindowTest, TheWindowAndItsMinimumFitTheScreen) {
    const struct {
        QSize available, defaultSize, minimum;
    } cases[] = {
        {{2560, 1400}, {1280, 800}, {640, 480}},
        {{1366, 740}, {1229, 666}, {640, 480}},
        {{1024, 560}, {922, 504}, {640, 480}},
        {{800, 600}, {720, 540}, {640, 480}},
        {{640, 400}, {576, 360}, {576, 360}}, // 2560x1600 at scale 4
        {{640, 480}, {576, 432}, {576, 432}},
        {{480, 270}, {432, 243}, {432, 243}}, // 1920x1080 at scale 4
    };
    for (const auto& c : cases) {
        EXPECT_EQ(defaultViewSize(c.available), c.defaultSize) << c.available.width();
        EXPECT_EQ(minimumViewSize(c.available), c.minimum) << c.available.width();
    }

    MainWindow window;
    window.show();
    const QSize available = window.screen()->availableSize();
    EXPECT_EQ(window.view().minimumSize(), minimumViewSize(available));
    EXPECT_EQ(window.size(), defaultViewSize(available));
}

} // namespace
} // namespace apsis
