// The game's own pictures and texts, as the build leaves them in its resource folder: each one
// there, in its format, shaped the way the drawing code cuts and places it, and the texts in
// step with the levels they describe.

#include "platform/qt_fonts.h"
#include "platform/qt_resources.h"
#include "world/game.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <numbers>
#include <string>
#include <vector>

#include <QImage>

namespace apsis {
namespace {

const std::filesystem::path kFolder = APSIS_TEST_RESOURCE_DIR;

QtResources& loader() {
    static QtResources resources(kFolder);
    return resources;
}

// "earth.jpg" -> the picture as the game holds it, null when missing.
const QtPicture* held(const std::string& file) {
    const auto dot = file.find('.');
    const PictureHandle handle = loader().loadPicture(file.substr(0, dot), file.substr(dot + 1));
    return dynamic_cast<const QtPicture*>(handle.get());
}

// "earth.jpg" -> the decoded picture, null when missing.
QImage picture(const std::string& file) {
    const QtPicture* qt = held(file);
    return qt ? qt->image() : QImage();
}

// One frame of a sheet: frames run row by row from the top-left corner.
QImage frameOf(const QImage& sheet, int spritesWide, int frame) {
    const int side = sheet.width() / spritesWide;
    return sheet.copy((frame % spritesWide) * side, (frame / spritesWide) * side, side, side);
}

TEST(Art, EveryPictureIsThereInItsFormatAndTheSheetsAreSquareGrids) {
    const Game game;
    struct File {
        std::string name;
        int spritesWide; // 0 for the screens
    };
    std::vector<File> files;
    for (const Stellar* body : {&game.sun, &game.venus, &game.earth, &game.moon, &game.mars,
                                &game.jupiter, &game.satellite, &game.station, &game.asteroid,
                                static_cast<const Stellar*>(&game.player)})
        files.push_back({body->img.name, body->img.spritesWide});
    for (const char* screen : {"splash", "menu", "menuAbout", "menuInstructions", "menuPractice",
                               "menuNew", "about", "instructions"}) {
        files.push_back({std::string(screen) + ".jpg", 0});
        files.push_back({std::string(screen) + "@2x.jpg", 0});
    }
    double afar = 0; // bytes of every picture at the coarsest size it is held at
    for (const File& file : files) {
        SCOPED_TRACE(file.name);
        const bool gif = file.name.ends_with(".gif");
        std::ifstream in(kFolder / file.name, std::ios::binary);
        std::string start(6, '\0');
        in.read(start.data(), 6);
        EXPECT_EQ(gif ? start : start.substr(0, 3), gif ? "GIF89a" : "\xff\xd8\xff");
        const QImage image = picture(file.name);
        ASSERT_FALSE(image.isNull());
        QtPicture::waitForDecodes();
        afar += static_cast<double>(held(file.name)
                                        ->pixels(QRectF(QPointF(), QSizeF(image.size())), 1e-3)
                                        .image.sizeInBytes());
        // The most of it held at its full size: an eighth of its lines.
        EXPECT_LT(4.0 * image.width() * image.height() / 8, 16e6);
        EXPECT_EQ(image.hasAlphaChannel(), gif);
        if (file.name.ends_with("@2x.jpg")) {
            const QImage single = picture(file.name.substr(0, file.name.size() - 7) + ".jpg");
            EXPECT_EQ(image.size(), single.size() * 2);
        }
        if (file.spritesWide == 0)
            continue;
        EXPECT_EQ(image.width(), image.height());
        EXPECT_EQ(image.width() % file.spritesWide, 0);
        // The craft stand on nothing: every frame's corners are transparent, its middle is not.
        for (int f = 0; gif && f < file.spritesWide * file.spritesWide; ++f) {
            const QImage frame = frameOf(image, file.spritesWide, f);
            const int last = frame.width() - 2;
            for (const QPoint corner : {QPoint(1, 1), QPoint(last, 1), QPoint(1, last)})
                EXPECT_EQ(qAlpha(frame.pixel(corner)), 0) << "frame " << f;
            EXPECT_EQ(qAlpha(frame.pixel(frame.width() / 2, frame.height() / 2)), 255);
        }
    }
    EXPECT_LT(afar, 8e6); // every picture seen from afar
}

// The direction, counter-clockwise from +x with y up, in which the craft's outermost opaque
// pixel lies from the frame's centre: where its nose points.
double noseDirection(const QImage& frame) {
    const double centre = frame.width() / 2.0;
    double farthest = -1.0;
    double direction = 0.0;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            const double dx = x + 0.5 - centre;
            const double dy = centre - (y + 0.5);
            if (qAlpha(frame.pixel(x, y)) >= 128 && dx * dx + dy * dy > farthest) {
                farthest = dx * dx + dy * dy;
                direction = std::atan2(dy, dx);
            }
        }
    }
    return direction;
}

TEST(Art, TheFrameShownForAHeadingPointsTheShipsNoseThatWay) {
    const QImage sheet = picture("ship.gif");
    ASSERT_FALSE(sheet.isNull());
    constexpr double kPi = std::numbers::pi;
    // Up (frame 0), right (frame 16), down, left, and some between.
    for (double heading : {kPi / 2, 0.0, -kPi / 2, kPi, 3 * kPi / 4, -2.5}) {
        SCOPED_TRACE(heading);
        const double nose = noseDirection(frameOf(sheet, 8, frameForAngle(heading, 8)));
        // A frame stands for headings up to one step of 1/64 turn on from its own, and the nose's
        // pixel may sit a little to one side.
        EXPECT_LT(std::abs(std::remainder(nose - heading, 2 * kPi)), 2 * kPi / 64 + 0.03);
    }
}

// Band k of the menu (k = 1 to 4 from the top) spans the middle three fifths of the width and the
// (k + 1)-th eighth of the height; its picture shows the menu there with the entry lit, so its
// edges match the menu and its middle does not.
TEST(Art, EachHighlightedEntryCoversItsMenuBandExactly) {
    const QImage menu = picture("menu.jpg");
    ASSERT_FALSE(menu.isNull());
    const char* bands[] = {"menuAbout.jpg", "menuInstructions.jpg", "menuPractice.jpg",
                           "menuNew.jpg"};
    for (int k = 1; k <= 4; ++k) {
        SCOPED_TRACE(k);
        const QImage band = picture(bands[k - 1]);
        ASSERT_EQ(band.width() * 5, menu.width() * 3);
        ASSERT_EQ(band.height() * 8, menu.height());
        const QImage under =
            menu.copy(menu.width() / 5, (k + 1) * menu.height() / 8, band.width(), band.height());
        double difference[2] = {0, 0}; // the ring of outer pixels, the inside
        int count[2] = {0, 0};
        for (int y = 0; y < band.height(); ++y) {
            for (int x = 0; x < band.width(); ++x) {
                const QRgb a = band.pixel(x, y), b = under.pixel(x, y);
                const bool inside =
                    x >= 6 && y >= 6 && x < band.width() - 6 && y < band.height() - 6;
                difference[inside] +=
                    (std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                     std::abs(qBlue(a) - qBlue(b))) /
                    3.0;
                ++count[inside];
            }
        }
        EXPECT_LT(difference[0] / count[0], 2.5) << "the band's edges must match the menu";
        EXPECT_GT(difference[1] / count[1], 10.0) << "the entry must show highlighted";
    }
}

// Durations as the briefings write them: "20 days", "6 days 6 hours".
std::string daysAndHours(double seconds) {
    const long long hours = std::llround(seconds) / 3600, days = hours / 24;
    std::string text = std::to_string(days) + (days == 1 ? " day" : " days");
    if (hours % 24 > 0)
        text += ' ' + std::to_string(hours % 24) + (hours % 24 == 1 ? " hour" : " hours");
    return text;
}

// The list names eight levels, no more (an empty piece after a final line feed counts as a line),
// each short enough for the set-up panel (27 characters of 18-point Courier). Each briefing fits
// a small window and tells the truth about its level's time limit at every difficulty, as the
// level set-up computes it.
TEST(Art, TheTextsFitTheirPanelsAndStateEachLevelsTimeLimit) {
    const QStringList names = linesOf(loader().loadText("levels", "txt").value_or(""));
    EXPECT_EQ(names.size(), 8);
    for (const QString& name : names)
        EXPECT_TRUE(!name.isEmpty() && name.size() <= 27) << name.toStdString();
    Game game;
    for (int level = 0; level <= 8; ++level) {
        SCOPED_TRACE(level);
        const auto text = loader().loadText("level" + std::to_string(level), "txt");
        ASSERT_TRUE(text);
        const QStringList lines = linesOf(text->substr(0, text->size() - text->ends_with('\n')));
        EXPECT_TRUE(!lines.empty() && lines.size() <= 16); // fits the smallest window
        for (const QString& line : lines)
            EXPECT_LE(line.size(), 56) << line.toStdString();
        std::string prose = *text; // a phrase may run on over a line break
        std::replace(prose.begin(), prose.end(), '\n', ' ');
        for (int difficulty = 1; difficulty <= 3; ++difficulty) {
            game.difficulty = difficulty;
            game.setLevel(level);
            const std::string limit =
                game.timeLimit == 0.0 ? "no time limit" : daysAndHours(game.timeLimit);
            EXPECT_NE(prose.find(limit), std::string::npos) << limit;
        }
    }
}

} // namespace
} // namespace apsis
