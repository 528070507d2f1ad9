#include "platform/qt_canvas.h"
#include "platform/qt_fonts.h"
#include "platform/qt_surface.h"

#include <cmath>
#include <gtest/gtest.h>

#include <QFontInfo>
#include <QImage>

namespace apsis {
namespace {

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
