#include "control/controller.h"
#include "control/keys.h"
#include "host/damage_canvas.h"
#include "physics/numeric.h"
#include "platform/qt_canvas.h"
#include "platform/qt_picture.h"
#include "platform/qt_resources.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

#include <QImage>
#include <QPainter>

namespace apsis {
namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;

// Draws the controller's present frame over black into image, only within region when given.
void paint(Controller& ctrl, QImage& image, const QRegion* region) {
    QPainter painter(&image);
    if (region != nullptr)
        painter.setClipRegion(*region);
    painter.fillRect(image.rect(), Qt::black);
    QtCanvas canvas(painter, Size{kWidth, kHeight});
    if (region != nullptr)
        canvas.setDirtyRegion(*region);
    CanvasFocus focus(canvas);
    ctrl.drawRect();
}

// The screen as the view keeps it: every tick repaints only where the frame changed. After any
// number of ticks it must hold exactly the picture that painting everything anew gives.
class PartialRepaint : public ::testing::Test {
  protected:
    void SetUp() override {
        previous = installResources(std::make_unique<QtResources>(APSIS_TEST_RESOURCE_DIR));
        randSeedSet = true;
        std::srand(11);
        screen.fill(Qt::black);
    }
    void TearDown() override { installResources(std::move(previous)); }

    // Ticks, each repainting the screen where its frame changed from the one before; or, as the
    // view does, whole where a picture was decoded more finely since the last tick.
    void tick(int count = 1) {
        for (int i = 0; i < count; ++i) {
            ctrl.doFrame();
            QtPicture::waitForDecodes(); // what the last tick asked for is at hand, as it soon is
            DamageCanvas notes(&screen, Size{kWidth, kHeight});
            {
                CanvasFocus focus(notes);
                ctrl.drawRect();
            }
            const unsigned decodes = QtPicture::decodesDone();
            const bool isWhole = first || decodes != decodesSeen;
            decodesSeen = decodes;
            const QRegion changed =
                isWhole ? QRegion(screen.rect()) : notes.changedSince(lastFrame);
            first = false;
            lastFrame = notes.marks();
            paint(ctrl, screen, &changed);
            changedArea = 0;
            for (const QRect& r : changed)
                changedArea += r.width() * r.height();
        }
    }

    void expectScreenIsWholeFrame(const char* when) {
        QImage whole(kWidth, kHeight, QImage::Format_RGB32);
        paint(ctrl, whole, nullptr);
        // A picture decoded on its thread while the screen or this frame was painted is drawn
        // more finely in one of them; the view draws it whole at its next tick. Only a frame
        // painted from the same sizes as the screen tells whether the repaints left a trace.
        QtPicture::waitForDecodes();
        if (QtPicture::decodesDone() == decodesSeen) {
            EXPECT_TRUE(screen == whole) << when;
        }
    }

    std::unique_ptr<Resources> previous;
    Controller ctrl;
    QImage screen{kWidth, kHeight, QImage::Format_RGB32};
    std::vector<DamageCanvas::Mark> lastFrame;
    bool first = true;
    unsigned decodesSeen = 0; // decodes done when the screen was last painted
    long changedArea = 0;
};

TEST_F(PartialRepaint, FlightZoomPauseAndRestartLeaveNoTrace) {
    tick(10); // the intro
    ctrl.startLevel(1);
    ctrl.keyDown(kKeySpace); // the briefing gives way to the flight
    ctrl.keyDown(kKeySpace); // and the world runs
    ctrl.keyDown(kKeyUp);
    ctrl.keyDown(kKeyLeft);
    tick(30);
    expectScreenIsWholeFrame("after burning and turning");
    // Coasting, the world still running: only the moving parts are repainted.
    ctrl.keyUp(kKeyUp);
    ctrl.keyUp(kKeyLeft);
    tick(2);
    EXPECT_LT(changedArea, kWidth * kHeight / 4);
    ctrl.keyDown(kKeyW);
    tick(20);
    ctrl.keyUp(kKeyW);
    tick();
    expectScreenIsWholeFrame("after zooming in");
    ctrl.keyDown(kKeySpace); // paused: the prompt comes over the scene
    tick(2);
    expectScreenIsWholeFrame("paused");
    // Deep zoom at the station, then the end of an attempt.
    ctrl.keyUp(kKeySpace);
    ctrl.startLevel(7);
    ctrl.keyDown(kKeySpace);
    ctrl.keyDown(kKeySpace);
    ctrl.keyDown(kKeyRight);
    tick(20);
    ctrl.keyUp(kKeyRight); // the craft settles on a frame of its sheet
    tick(30);
    expectScreenIsWholeFrame("level 7 at 200 m");
    ctrl.keyDown(kKeyTab); // restart: the fade to white, then the briefing
    tick(12);
    expectScreenIsWholeFrame("after the fade");
}

// Zoomed in until the planet fills the view, the view moves a ten-thousandth of a pixel a tick:
// the planet's picture is repainted only where its pixels change, and the screen stays exact.
TEST_F(PartialRepaint, APlanetFillingTheViewIsRepaintedOnlyWhereItChanges) {
    tick(10);
    ctrl.startLevel(1);
    ctrl.keyDown(kKeySpace);
    ctrl.keyDown(kKeySpace);
    tick(60);
    ctrl.keyDown(kKeyW);
    tick(75);
    ctrl.keyUp(kKeyW);
    QtPicture::waitForDecodes(); // the planet at the size drawn
    tick(2);
    long area = 0;
    for (int i = 0; i < 30; ++i) {
        tick();
        area += changedArea;
    }
    EXPECT_LT(area, 30L * kWidth * kHeight / 4);
    expectScreenIsWholeFrame("zoomed in on the planet");
}

// Rectangles close together go to the X server as one; those far apart, where one would cover
// much more ground than both, stay apart.
TEST(JoinedRepaint, NeighboursBecomeOneRectangleAndDistantOnesStayApart) {
    std::vector<QRect> rects{{100, 100, 40, 10},
                             {100, 112, 40, 10},
                             {105, 95, 30, 30},
                             {600, 500, 40, 40},
                             {10, 500, 20, 20}};
    DamageCanvas::joinNeighbours(rects);
    EXPECT_EQ(rects,
              (std::vector<QRect>{{100, 95, 40, 30}, {600, 500, 40, 40}, {10, 500, 20, 20}}));
    std::vector<QRect> wide{{0, 0, 800, 20}, {0, 300, 800, 20}}; // a wide gap of wide ground
    DamageCanvas::joinNeighbours(wide);
    EXPECT_EQ(wide.size(), 2u);
}

} // namespace
} // namespace apsis
