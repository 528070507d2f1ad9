#include "platform/qt_canvas.h"
#include "platform/qt_convert.h"
#include "platform/qt_fonts.h"
#include "platform/qt_resources.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

#include <QFontInfo>
#include <QImage>
#include <QPainter>

namespace apsis {
namespace {

// A black surface drawn through a QtCanvas, read back in the game's own coordinates.
class QtCanvasTest : public ::testing::Test {
  protected:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 100;

    QtCanvasTest() : image(kWidth, kHeight, QImage::Format_RGB32) { image.fill(Qt::black); }

    template <typename Draw>
    void draw(Draw&& drawing) {
        QPainter painter(&image);
        QtCanvas canvas(painter);
        drawing(canvas);
    }
    // The colour at a view point, y upwards.
    QColor at(int x, int y) const { return image.pixelColor(x, kHeight - 1 - y); }
    bool lit(int x, int y) const { return at(x, y) != QColor(Qt::black); }

    // The lit pixels' bounding box in view coordinates, inclusive.
    struct Ink {
        int left = kWidth, bottom = kHeight, right = -1, top = -1;
    };
    Ink ink() const {
        Ink box;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (lit(x, y)) {
                    box = {std::min(box.left, x), std::min(box.bottom, y), std::max(box.right, x),
                           std::max(box.top, y)};
                }
            }
        }
        return box;
    }

    QImage image;
};

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

TEST_F(QtCanvasTest, TextLiesInItsMeasuredBoxWithTheFirstLineOnTop) {
    const TextStyle style{FontFamily::Courier, 16.0f, colors::white, std::nullopt};
    Size one, two;
    draw([&](Canvas& canvas) {
        one = canvas.measureText("MMMMMMMM", style);
        two = canvas.measureText("MMMMMMMM\nMp", style);
        EXPECT_EQ(canvas.measureText("", style), (Size{0, 0}));
        canvas.drawText("MMMMMMMM\nMp", {10, 10}, style);
    });
    // Courier sets every letter 0.6 of its size apart.
    EXPECT_NEAR(one.width, 8 * 0.6 * 16, 0.5);
    EXPECT_EQ(two.width, one.width);                      // the widest line
    EXPECT_NEAR(two.height - one.height, 16 * 1.25, 1.5); // one line of Courier 16 more
    const Ink drawn = ink();
    EXPECT_GE(drawn.left, 10);
    EXPECT_LE(drawn.right, 10 + one.width);
    EXPECT_GE(drawn.bottom, 10);
    EXPECT_LE(drawn.top, 10 + two.height);
    EXPECT_LE(drawn.bottom, 10 + one.height / 3); // the descender of "p" near the bottom
    // The long line is the upper one: across the top the ink runs far to the right, at the
    // bottom only two letters wide.
    bool longAtTop = false, longAtBottom = false;
    for (int x = 10 + static_cast<int>(one.width / 2); x < kWidth; ++x) {
        longAtTop = longAtTop || lit(x, drawn.top - 2);
        longAtBottom = longAtBottom || lit(x, drawn.bottom + 2);
    }
    EXPECT_TRUE(longAtTop);
    EXPECT_FALSE(longAtBottom);
}

TEST_F(QtCanvasTest, ABackgroundFillsTheMeasuredBoxAndBoxedTextRunsDownFromTheTop) {
    const TextStyle banner{FontFamily::Copperplate, 14.0f, colors::black, colors::red};
    Size box;
    draw([&](Canvas& canvas) {
        box = canvas.measureText(" Out Of Fuel ", banner);
        canvas.drawText(" Out Of Fuel ", {30, 40}, banner);
    });
    const Ink red = ink();
    EXPECT_EQ(red.left, 30);
    EXPECT_EQ(red.bottom, 40);
    EXPECT_NEAR(red.right + 1, 30 + box.width, 1.0);
    EXPECT_NEAR(red.top + 1, 40 + box.height, 1.0);
    int black = 0; // black letters stand on the red
    for (int x = red.left; x <= red.right; ++x)
        black += at(x, 40 + static_cast<int>(box.height / 2)).red() < 128;
    EXPECT_GT(black, 5);

    image.fill(Qt::black);
    const TextStyle style{FontFamily::Times, 13.0f, colors::white, std::nullopt};
    draw([&](Canvas& canvas) {
        canvas.drawTextInRect("Dock with the station\nwithin the time", {10, 10, 180, 80}, style);
    });
    const Ink drawn = ink(); // the first line at the top of the rectangle, two reach not its bottom
    EXPECT_TRUE(drawn.left >= 10 && drawn.top <= 89 && drawn.top >= 80 && drawn.bottom > 40);
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

TEST(QtFonts, TheGameFamiliesResolveToTheirFacesAtWholePixelSizes) {
    const struct {
        FontFamily family;
        QString face;
    } cases[] = {
        {FontFamily::Courier, "Nimbus Mono PS"},
        {FontFamily::Times, "Nimbus Roman"},
        {FontFamily::Label, "Nimbus Sans"},
        {FontFamily::Copperplate, "Quattrocento"},
    };
    for (const auto& c : cases) {
        const QFont font = fontFor(c.family, 12.0f);
        EXPECT_TRUE(QFontInfo(font).family().startsWith(c.face))
            << QFontInfo(font).family().toStdString();
        EXPECT_EQ(font.pixelSize(), 12); // a point of the game is a pixel of Qt
    }
    EXPECT_EQ(fontFor(FontFamily::Copperplate, 24.0f).capitalization(), QFont::SmallCaps);
    EXPECT_EQ(fontFor(FontFamily::Courier, 12.4f).pixelSize(), 12);
    EXPECT_EQ(fontFor(FontFamily::Courier, NAN).pixelSize(), 12);
    EXPECT_EQ(fontFor(FontFamily::Courier, 1e30f).pixelSize(), 512);
    EXPECT_EQ(linesOf("one\r\ntwo\n"), QStringList({"one", "two", ""}));
}

} // namespace
} // namespace apsis

namespace apsis {
namespace {

// The display's face is measured by adding up its letters: that must be the width Qt lays the
// line out at, to the bit, or the view would repaint too little where a read-out changed.
TEST(QtFonts, ALineOfOnePitchIsAsWideAsQtLaysItOut) {
    QImage device(8, 8, QImage::Format_RGB32);
    QString ascii;
    for (char16_t c = u' '; c <= u'~'; ++c)
        ascii += QChar(c);
    for (const float size : {9.0f, 12.0f, 13.0f, 14.0f}) {
        const Face face(fontFor(FontFamily::Courier, size), &device);
        for (const QChar a : ascii) {
            for (const QChar b : ascii) {
                const QString pair = QString(a) + b;
                ASSERT_EQ(face.widthOf(pair), face.metrics.horizontalAdvance(pair))
                    << pair.toStdString() << " at " << size;
            }
        }
        for (const QString& line :
             {ascii, QString("Fuel: <6y 91d 06h 00m 00s>"), QString("Distance to Earth: 19,998km"),
              QString("2 µs ffi"), QString("Höhe →")})
            EXPECT_EQ(face.widthOf(line), face.metrics.horizontalAdvance(line))
                << line.toStdString();
    }
}

} // namespace
} // namespace apsis
