#include "platform/qt_fonts.h"

#include <cmath>
#include <gtest/gtest.h>

#include <QFontInfo>
#include <QImage>

namespace apsis {
namespace {

TEST(QtFonts, TheGameFamiliesResolveToTheirFaces) {
    QImage surface(10, 10, QImage::Format_RGB32);
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
    EXPECT_EQ(fontFor(FontFamily::Courier, 12.0f).capitalization(), QFont::MixedCase);
    // Courier sets its letters 0.6 of the size apart, on an image as on any screen.
    const Face face(fontFor(FontFamily::Courier, 20.0f), &surface);
    EXPECT_NEAR(face.metrics.horizontalAdvance("MMMMMMMMMM"), 120.0, 1.0);
    EXPECT_EQ(fontFor(FontFamily::Courier, 12.4f).pixelSize(), 12);
    EXPECT_EQ(fontFor(FontFamily::Courier, NAN).pixelSize(), 12);
    EXPECT_EQ(fontFor(FontFamily::Courier, 1e30f).pixelSize(), 512);
}

TEST(QtFonts, LinesBreakAtLineFeedsAndAFinalOneEndsInAnEmptyLine) {
    EXPECT_EQ(linesOf("Earth"), QStringList({"Earth"}));
    EXPECT_EQ(linesOf("Tab to Restart Level\nEscape to Abort Game"),
              QStringList({"Tab to Restart Level", "Escape to Abort Game"}));
    EXPECT_EQ(linesOf("one\r\ntwo\n"), QStringList({"one", "two", ""}));
    EXPECT_EQ(linesOf("Mañana"), QStringList({QString::fromUtf8("Mañana")}));
}

} // namespace
} // namespace apsis
