#include "platform/qt_canvas.h"
#include "platform/qt_convert.h"
#include "platform/qt_resources.h"
#include "platform/qt_surface.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

#include <QImage>
#include <QPainter>

namespace apsis {
namespace {

TEST_F(QtCanvasTest, RectanglesStandOnTheBottomLeftWithClampedColours) {
    draw([](Canvas& canvas) {
        EXPECT_EQ(canvas.size(), (Size{kWidth, kHeight}));
        canvas.fillRect({0, 0, 10, 10}, colors::red);                    // bottom-left corner
        canvas.fillRect({190, 90, 10, 10}, colors::blue);                // top-right corner
        canvas.fillRect({50, 20, 10, -10}, colors::green);               // hangs down to y = 10
        canvas.fillRect({120, 0, 10, 10}, {2.0, -1.0, 0.5, 7.0});        // held to 0..1
        canvas.fillRect({140, 0, 10, 10}, {1.0, 1.0, 1.0, 0.5});         // half over black
        canvas.fillRect({160, 0, 10, 10}, {NAN, 1.0, 0.0, 1.0});         // no red at all
        canvas.fillRect({-1e12f, -1e6f, 2e12f, 1e6f + 5}, colors::gray); // the bottom 5 rows
    });
    EXPECT_EQ(at(0, 9), QColor(Qt::red));
    EXPECT_EQ(at(0, 99), QColor(Qt::black));
    EXPECT_EQ(at(199, 99), QColor(Qt::blue));
    EXPECT_EQ(at(55, 15), QColor(Qt::green));
    EXPECT_EQ(at(55, 25), QColor(Qt::black));
    EXPECT_EQ(at(125, 7), QColor(255, 0, 128));
    EXPECT_NEAR(at(145, 7).red(), 128, 2);
    EXPECT_EQ(at(165, 7), QColor(0, 255, 0));
    EXPECT_EQ(at(105, 2), QColor(128, 128, 128));
    EXPECT_EQ(at(105, 7), QColor(Qt::black));
}

TEST_F(QtCanvasTest, StrokesAreOnePointOutlinesAndFillsCloseTheirShapes) {
    draw([](Canvas& canvas) {
        Path outline;
        outline.addRect({10.5f, 10.5f, 40, 40}); // on pixel centres: crisp one-pixel lines
        canvas.strokePath(outline, colors::white);
        Path triangle; // left open: the fill closes it
        triangle.moveTo({60, 10});
        triangle.lineTo({100, 10});
        triangle.lineTo({60, 50});
        canvas.fillPath(triangle, colors::green);
        Path dot;
        dot.addOval({120, 10, 40, 40});
        canvas.fillPath(dot, colors::blue);
        Path line;
        line.moveTo({170, 80.5f});
        line.lineTo({190, 80.5f});
        canvas.strokePath(line, colors::red);
    });
    EXPECT_EQ(at(10, 30), QColor(Qt::white));
    EXPECT_EQ(at(30, 50), QColor(Qt::white));
    EXPECT_EQ(at(30, 30), QColor(Qt::black)); // only the outline, one point wide
    EXPECT_EQ(at(30, 48), QColor(Qt::black));
    EXPECT_EQ(at(65, 15), QColor(Qt::green));
    EXPECT_EQ(at(95, 45), QColor(Qt::black)); // beyond the closing edge
    EXPECT_EQ(at(140, 30), QColor(Qt::blue));
    EXPECT_EQ(at(121, 11), QColor(Qt::black)); // the oval's corner stays empty
    EXPECT_EQ(at(180, 80), QColor(Qt::red));
    EXPECT_EQ(at(168, 80), QColor(Qt::black)); // square-cut ends: nothing beyond the end point
}

// What the view repaints around a stroke must hold all of its ink. The sharpest turns reach
// furthest: on a dense screen, where a line is wider than a pixel, as mitres until they are cut.
TEST(QtCanvasReach, AStrokesInkStaysWithinItsReach) {
    for (const double density : {1.0, 2.0, 3.0}) {
        for (const float spread : {0.02f, 0.1f, 0.2f, 0.3f, 0.42f, 0.5f, 0.7f, 1.0f, 2.0f}) {
            QImage surface(static_cast<int>(200 * density), static_cast<int>(100 * density),
                           QImage::Format_RGB32);
            surface.setDevicePixelRatio(density);
            surface.fill(Qt::black);
            QPainter painter(&surface);
            QtCanvas canvas(painter);
            Path v; // a turn back on itself at (100.3, 50.2), its arms 60 points long
            v.moveTo({40.3f, 50.2f - spread * 30.0f});
            v.lineTo({100.3f, 50.2f});
            v.lineTo({40.3f, 50.2f + spread * 30.0f});
            canvas.strokePath(v, colors::white);
            painter.end();
            int right = -1; // the rightmost lit pixel's right edge, points
            for (int y = 0; y < surface.height(); ++y) {
                for (int x = surface.width() - 1; x > right; --x) {
                    if (surface.pixelColor(x, y) != QColor(Qt::black))
                        right = x;
                }
            }
            EXPECT_LE((right + 1) / density, 100.3 + kStrokeReach) << density << " " << spread;
            EXPECT_GE((right + 1) / density, 100.3) << density << " " << spread;
        }
    }
}

TEST_F(QtCanvasTest, AbsurdGeometryDrawsWhatCanBeSeenAndNothingElse) {
    draw([](Canvas& canvas) {
        const TextStyle label{FontFamily::Label, 12.0f, colors::blue, std::nullopt};
        Path far;
        far.addOval({1e12f, 1e12f, 5, 5});
        canvas.fillPath(far, colors::green);
        canvas.drawText("The Sun", {1e12f, 1e12f}, label);
        canvas.drawText("The Sun", {NAN, 10}, label);
        Path broken;
        broken.moveTo({10, 10});
        broken.lineTo({INFINITY, 10});
        canvas.strokePath(broken, colors::green);
    });
    EXPECT_LT(ink().right, 0);

    draw([](Canvas& canvas) {
        Path huge; // a circle around the view whose top is at y = 80
        huge.addOval({100 - 1e7f, 80 - 2e7f, 2e7f, 2e7f});
        canvas.fillPath(huge, colors::blue);
        Path across; // a line from far left to far right
        across.moveTo({-1e12f, 50.5f});
        across.lineTo({1e12f, 50.5f});
        canvas.strokePath(across, colors::red);
    });
    EXPECT_EQ(at(0, 50), QColor(Qt::red));
    EXPECT_EQ(at(199, 50), QColor(Qt::red));
    EXPECT_EQ(at(100, 75), QColor(Qt::blue));
    EXPECT_EQ(at(100, 90), QColor(Qt::black));
}

TEST_F(QtCanvasTest, PicturesAreCutFromTheirBottomLeftAndDrawnWithOpacity) {
    // A picture whose upper half is red and lower half blue, as it lies in its file.
    QImage sheet(4, 4, QImage::Format_RGB32);
    sheet.fill(Qt::blue);
    QPainter(&sheet).fillRect(0, 0, 4, 2, Qt::red);
    const QtPicture picture(sheet);
    draw([&](Canvas& canvas) {
        canvas.drawPicture(&picture, {0, 0, 4, 2}, {0, 0, 40, 20}, 1.0);    // the lower half
        canvas.drawPicture(&picture, {0, 2, 4, 2}, {50, 0, 40, 20}, 1.0);   // the upper half
        canvas.drawPicture(&picture, {0, 0, 4, 4}, {100, 0, 40, 40}, 0.5);  // half seen
        canvas.drawPicture(&picture, {0, 0, 4, 4}, {150, 0, 40, 40}, -1.0); // not seen
        canvas.drawPicture(nullptr, {0, 0, 4, 4}, {150, 50, 40, 40}, 1.0);
        // Millions of points across: only the part in view is drawn, and it is the picture's.
        canvas.drawPicture(&picture, {0, 0, 4, 4}, {-2e7f, 50, 4e7f, 40}, 1.0);
    });
    EXPECT_EQ(at(20, 10), QColor(Qt::blue));
    EXPECT_EQ(at(70, 10), QColor(Qt::red));
    EXPECT_NEAR(at(120, 30).red(), 128, 3);
    EXPECT_EQ(at(170, 20), QColor(Qt::black));
    EXPECT_EQ(at(190, 80), QColor(Qt::red));
    EXPECT_EQ(at(190, 55), QColor(Qt::blue));
}

// On a double-density screen a point is two pixels: shapes and pictures keep their size in points
// and gain detail. A picture kept scaled between redraws looks as one scaled afresh, and another
// frame of the same sheet at the same size is that frame, not the copy of the first.
TEST(QtCanvasHiDpi, APointIsTwoPixelsAndAPictureKeptScaledLooksAsOneScaledAfresh) {
    // Two frames side by side: a red-to-blue ramp with translucent stripes, and plain green.
    QImage sheet(64, 32, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            sheet.setPixelColor(x, y, QColor(255 - 8 * x, 0, 8 * x, y % 4 == 0 ? 128 : 255));
        for (int x = 32; x < 64; ++x)
            sheet.setPixelColor(x, y, Qt::green);
    }
    const QtPicture picture(sheet);
    const Rect first{0, 0, 32, 32}, second{32, 0, 32, 32};
    std::vector<QImage> redraws;
    for (const Rect& frame : {first, first, first, second}) {
        QImage surface(400, 200, QImage::Format_RGB32);
        surface.setDevicePixelRatio(2.0);
        surface.fill(Qt::black);
        QPainter painter(&surface);
        QtCanvas canvas(painter);
        EXPECT_EQ(canvas.size(), (Size{200, 100}));
        canvas.fillRect({0, 0, 10, 10}, colors::red);
        canvas.drawPicture(&picture, frame, {50, 20, 60, 60}, 0.75);
        painter.end();
        redraws.push_back(surface);
    }
    // The square of 10 points is 20 pixels at the bottom-left.
    EXPECT_EQ(redraws[0].pixelColor(19, 199 - 19), QColor(Qt::red));
    EXPECT_EQ(redraws[0].pixelColor(20, 199), QColor(Qt::black));
    // The picture of 60 points covers 120 pixels.
    EXPECT_EQ(redraws[0].pixelColor(99, 199 - 39), QColor(Qt::black));
    EXPECT_NE(redraws[0].pixelColor(101, 199 - 41), QColor(Qt::black));
    EXPECT_NE(redraws[0].pixelColor(218, 199 - 158), QColor(Qt::black));
    EXPECT_EQ(redraws[0].pixelColor(221, 199 - 161), QColor(Qt::black));
    // The first redraw scales while drawing; the later ones draw a copy scaled before.
    for (std::size_t i : {1u, 2u}) {
        int worst = 0;
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 400; ++x) {
                const QColor a = redraws[0].pixelColor(x, y), b = redraws[i].pixelColor(x, y);
                worst = std::max({worst, std::abs(a.red() - b.red()),
                                  std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
            }
        }
        EXPECT_LE(worst, 2) << "redraw " << i;
    }
    EXPECT_EQ(redraws[3].pixelColor(160, 100), QColor(0, 191, 0));
}

} // namespace
} // namespace apsis
