// Draws every picture of the game into the folder named on the command line: the ten sprite
// sheets and the eight screens; and, when an icon folder and name are given, the launcher's icon in
// every size, as <icon folder>/<N>x<N>/apps/<name>.png, the layout of an icon theme. The same
// program always writes the same bytes.

#include "bodies.h"
#include "craft.h"
#include "gif_writer.h"
#include "icon.h"
#include "screens.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include <QGuiApplication>

namespace {

using namespace apsis::artgen;

// A sprite sheet: its file, frames along each side, the size of one frame, and how the body is
// drawn. Bodies are drawn at twice the frame size and craft, with their fine lines, at three
// times, before being turned and shrunk into the frames.
struct Sheet {
    const char* file;
    int spritesWide;
    int frameSize;
    int detail;
    Raster (*draw)(int size);
};

// Frame sizes are multiples of 16, so that frames line up with JPEG's blocks and a frame's colours
// never bleed into its neighbour's. They are about as large as the game draws them where the
// levels open, full screen: Earth, which fills most of the view at 25,000 km, the largest. The
// craft are made for the closest view they are flown in, docking, about 200 m across a full-HD
// screen: there the ship and the satellite (100 m) are 960 pixels wide and the station (240 m)
// 2,304, each at most half as large again as its frame. The game decodes a sheet at the size it
// draws it, so a body far away costs no more than it did from a smaller sheet.
constexpr Sheet kSheets[] = {
    {"sun.jpg", 6, 512, 2, drawSun},           {"venus.jpg", 8, 448, 2, drawVenus},
    {"earth.jpg", 8, 656, 2, drawEarth},       {"moon.jpg", 8, 448, 2, drawMoon},
    {"mars.jpg", 8, 448, 2, drawMars},         {"jupiter.jpg", 8, 448, 2, drawJupiter},
    {"asteroid.jpg", 8, 256, 2, drawAsteroid}, {"satellite.gif", 1, 640, 3, drawSatellite},
    {"station.gif", 1, 1536, 3, drawStation},  {"ship.gif", 8, 640, 3, drawShip},
};

bool isGif(const std::string& file) {
    return file.ends_with(".gif");
}

bool saveJpeg(const QImage& image, const std::filesystem::path& path) {
    return image.save(QString::fromStdString(path.string()), "JPG", 92);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: %s <resource folder> [<icon folder> <icon name>]\n", argv[0]);
        return 2;
    }
    // Text is drawn without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const std::filesystem::path folder = argv[1];
    std::error_code error;
    std::filesystem::create_directories(folder, error);

    bool ok = true;
    auto report = [&ok](bool written, const std::filesystem::path& path) {
        if (!written) {
            std::fprintf(stderr, "artgen: cannot write %s\n", path.c_str());
            ok = false;
        }
    };
    for (const Sheet& sheet : kSheets) {
        const Raster body = sheet.draw(sheet.frameSize * sheet.detail);
        const Raster frames = makeSheet(body, sheet.spritesWide, sheet.frameSize);
        const auto path = folder / sheet.file;
        report(isGif(sheet.file) ? writeGif(frames, path.string())
                                 : saveJpeg(toImage(frames, true), path),
               path);
    }
    // The screens at the window's size and at twice it, for screens of twice the density.
    for (const int scale : {1, 2}) {
        for (const Screen& screen : drawScreens(scale)) {
            const auto path = folder / (screen.name + (scale == 1 ? "" : "@2x") + ".jpg");
            report(saveJpeg(screen.image, path), path);
        }
    }
    if (argc == 4) {
        for (const int size : kIconSizes) {
            const std::string square = std::to_string(size) + "x" + std::to_string(size);
            const auto apps = std::filesystem::path(argv[2]) / square / "apps";
            std::filesystem::create_directories(apps, error);
            const auto icon = apps / (std::string(argv[3]) + ".png");
            report(drawIcon(size).save(QString::fromStdString(icon.string()), "PNG"), icon);
        }
    }
    return ok ? 0 : 1;
}
