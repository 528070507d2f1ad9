#include "platform/qt_fonts.h"

#include <cmath>
#include <gtest/gtest.h>

#include <QFontInfo>

namespace apsis {
namespace {

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
