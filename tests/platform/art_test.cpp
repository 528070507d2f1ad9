// The game's own pictures and texts, as the build leaves them in its resource folder: each one
// there, in its format, shaped the way the drawing code cuts and places it, and the texts in
// step with the levels they describe.

#include "platform/qt_resources.h"
#include "world/game.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <numbers>
#include <sstream>
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

// "earth.jpg" -> the decoded picture, null when missing.
QImage picture(const std::string& file) {
    const auto dot = file.find('.');
    const PictureHandle handle = loader().loadPicture(file.substr(0, dot), file.substr(dot + 1));
    const auto* qt = dynamic_cast<const QtPicture*>(handle.get());
    return qt ? qt->image() : QImage();
}

std::string fileStart(const std::string& file, std::size_t count) {
    std::ifstream in(kFolder / file, std::ios::binary);
    std::string bytes(count, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes.substr(0, static_cast<std::size_t>(in.gcount()));
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::stringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// The ten sprite sheets, as the world's roster names them.
struct Sheet {
    std::string file;
    int spritesWide;
};

std::vector<Sheet> rosterSheets() {
    const Game game;
    std::vector<Sheet> sheets;
    for (const Stellar* body : {&game.sun, &game.venus, &game.earth, &game.moon, &game.mars,
                                &game.jupiter, &game.satellite, &game.station, &game.asteroid,
                                static_cast<const Stellar*>(&game.player)})
        sheets.push_back({body->img.name, body->img.spritesWide});
    return sheets;
}

const std::vector<std::string> kScreens = {
    "splash",       "menu",    "menuAbout", "menuInstructions",
    "menuPractice", "menuNew", "about",     "instructions"};

bool isGif(const std::string& file) {
    return file.ends_with(".gif");
}

// One frame of a sheet: frames run row by row from the top-left corner.
QImage frameOf(const QImage& sheet, int spritesWide, int frame) {
    const int side = sheet.width() / spritesWide;
    return sheet.copy((frame % spritesWide) * side, (frame / spritesWide) * side, side, side);
}

int brightest(QRgb p) {
    return std::max({qRed(p), qGreen(p), qBlue(p)});
}

TEST(Art, EverySheetIsASquareGridInItsNamedFormat) {
    for (const Sheet& sheet : rosterSheets()) {
        SCOPED_TRACE(sheet.file);
        const std::string start = fileStart(sheet.file, 6);
        if (isGif(sheet.file))
            EXPECT_EQ(start, "GIF89a");
        else
            EXPECT_EQ(start.substr(0, 3), "\xff\xd8\xff");
        const QImage image = picture(sheet.file);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.width(), image.height());
        EXPECT_EQ(image.width() % sheet.spritesWide, 0);
    }
    for (const std::string& screen : kScreens) {
        SCOPED_TRACE(screen);
        EXPECT_EQ(fileStart(screen + ".jpg", 3), "\xff\xd8\xff");
        EXPECT_FALSE(picture(screen + ".jpg").isNull());
    }
}

// The JPEG bodies are drawn over black space, so every frame is black in its corners and shows
// the body in its middle; the GIF craft stand on nothing.
TEST(Art, BodiesStandOnBlackAndCraftOnNothing) {
    for (const Sheet& sheet : rosterSheets()) {
        SCOPED_TRACE(sheet.file);
        const QImage image = picture(sheet.file);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.hasAlphaChannel(), isGif(sheet.file));
        for (int f = 0; f < sheet.spritesWide * sheet.spritesWide; ++f) {
            const QImage frame = frameOf(image, sheet.spritesWide, f);
            const int last = frame.width() - 2;
            for (const QPoint corner :
                 {QPoint(1, 1), QPoint(last, 1), QPoint(1, last), QPoint(last, last)}) {
                const QRgb p = frame.pixel(corner);
                if (isGif(sheet.file))
                    EXPECT_EQ(qAlpha(p), 0) << "frame " << f;
                else
                    EXPECT_LT(brightest(p), 24) << "frame " << f;
            }
            const QRgb middle = frame.pixel(frame.width() / 2, frame.height() / 2);
            EXPECT_EQ(qAlpha(middle), 255) << "frame " << f;
            EXPECT_GT(brightest(middle), 60) << "frame " << f;
        }
    }
}

// The direction, counter-clockwise from +x with y up, in which the craft's outermost opaque
// pixel lies from the frame's centre: where its nose points.
double noseDirection(const QImage& frame) {
    const double centre = frame.width() / 2.0;
    double farthest = -1.0;
    double direction = 0.0;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            if (qAlpha(frame.pixel(x, y)) < 128)
                continue;
            const double dx = x + 0.5 - centre;
            const double dy = centre - (y + 0.5);
            if (dx * dx + dy * dy > farthest) {
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
    for (double heading : {kPi / 2, 0.0, -kPi / 2, kPi, kPi / 4, 3 * kPi / 4, 1.0, -2.5}) {
        SCOPED_TRACE(heading);
        const double nose = noseDirection(frameOf(sheet, 8, frameForAngle(heading, 8)));
        // A frame stands for headings up to one step of 1/64 turn on from its own, and the nose's
        // pixel may sit a little to one side.
        EXPECT_LT(std::abs(std::remainder(nose - heading, 2 * kPi)), 2 * kPi / 64 + 0.03);
    }
}

// Band k of the menu (k = 1 to 4 from the top) spans the middle three fifths of the width and the
// (k + 1)-th eighth of the height; its picture must show the menu there with the entry lit.
TEST(Art, EachHighlightedEntryCoversItsMenuBandExactly) {
    const QImage menu = picture("menu.jpg");
    ASSERT_FALSE(menu.isNull());
    const char* bands[] = {"menuAbout.jpg", "menuInstructions.jpg", "menuPractice.jpg",
                           "menuNew.jpg"};
    for (int k = 1; k <= 4; ++k) {
        SCOPED_TRACE(k);
        const QImage band = picture(bands[k - 1]);
        ASSERT_FALSE(band.isNull());
        ASSERT_EQ(band.width() * 5, menu.width() * 3);
        ASSERT_EQ(band.height() * 8, menu.height());
        const QImage under =
            menu.copy(menu.width() / 5, (k + 1) * menu.height() / 8, band.width(), band.height());
        // Mean difference per channel over a ring of the band's outer pixels, then inside it.
        double edge = 0, inside = 0;
        int edgeCount = 0, insideCount = 0;
        for (int y = 0; y < band.height(); ++y) {
            for (int x = 0; x < band.width(); ++x) {
                const QRgb a = band.pixel(x, y);
                const QRgb b = under.pixel(x, y);
                const int d = std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                              std::abs(qBlue(a) - qBlue(b));
                const bool ring = x < 6 || y < 6 || x >= band.width() - 6 || y >= band.height() - 6;
                (ring ? edge : inside) += d / 3.0;
                ++(ring ? edgeCount : insideCount);
            }
        }
        EXPECT_LT(edge / edgeCount, 2.5) << "the band's edges must match the menu";
        EXPECT_GT(inside / insideCount, 10.0) << "the entry must show highlighted";
    }
}

TEST(Art, AllPicturesDecodedTakeLessThan100MB) {
    std::vector<std::string> files;
    for (const Sheet& sheet : rosterSheets())
        files.push_back(sheet.file);
    for (const std::string& screen : kScreens)
        files.push_back(screen + ".jpg");
    double bytes = 0;
    for (const std::string& file : files) {
        const QImage image = picture(file);
        ASSERT_FALSE(image.isNull()) << file;
        bytes += 4.0 * image.width() * image.height();
    }
    EXPECT_LT(bytes, 100e6);
}

// The set-up screen lists the file's lines and counts an empty piece after a final line feed as
// a line: eight names, no more. The chosen line is drawn in 18-point Courier from 111 points left
// of the panel's centre, which leaves room for 27 characters inside the panel.
TEST(Art, LevelListNamesEightLevelsThatFitThePanel) {
    const auto text = loader().loadText("levels", "txt");
    ASSERT_TRUE(text);
    ASSERT_FALSE(text->ends_with("\n"));
    const std::vector<std::string> lines = linesOf(*text);
    ASSERT_EQ(lines.size(), 8u);
    for (const std::string& line : lines) {
        EXPECT_FALSE(line.empty());
        EXPECT_LE(line.size(), 27u) << line;
    }
}

// Durations as the briefings write them: "20 days", "6 days 6 hours".
std::string daysAndHours(double seconds) {
    const long long whole = std::llround(seconds);
    const long long days = whole / 86400;
    const long long hours = whole % 86400 / 3600;
    std::ostringstream text;
    text << days << (days == 1 ? " day" : " days");
    if (hours > 0)
        text << ' ' << hours << (hours == 1 ? " hour" : " hours");
    return text.str();
}

// Each briefing fits a small window and tells the truth about its level's time limit at every
// difficulty, as the level set-up computes it.
TEST(Art, BriefingsAreShortAndStateEachLevelsTimeLimit) {
    Game game;
    for (int level = 0; level <= 8; ++level) {
        SCOPED_TRACE(level);
        const auto text = loader().loadText("level" + std::to_string(level), "txt");
        ASSERT_TRUE(text);
        const std::vector<std::string> lines = linesOf(*text);
        // A phrase may run on over a line break.
        std::string prose = *text;
        std::replace(prose.begin(), prose.end(), '\n', ' ');
        ASSERT_FALSE(lines.empty());
        EXPECT_LE(lines.size(), 14u);
        for (const std::string& line : lines)
            EXPECT_LE(line.size(), 56u) << line;
        for (int difficulty = 1; difficulty <= 3; ++difficulty) {
            game.difficulty = difficulty;
            game.setLevel(level);
            if (game.timeLimit == 0.0)
                EXPECT_NE(prose.find("no time limit"), std::string::npos);
            else
                EXPECT_NE(prose.find(daysAndHours(game.timeLimit)), std::string::npos)
                    << daysAndHours(game.timeLimit);
        }
    }
}

} // namespace
} // namespace apsis
