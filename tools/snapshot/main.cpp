// apsis_snapshot OUT_DIR [WIDTHxHEIGHT[@2x]]
//
// Renders every screen a player meets into OUT_DIR, one PNG each, through the same canvas as the
// game's window but offscreen: a way to look at all of the game's pictures in a minute.

#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"
#include "scenes.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

namespace {

int usage() {
    std::fprintf(stderr,
                 "usage: apsis_snapshot OUT_DIR [WIDTHxHEIGHT[@2x]]\n"
                 "Renders every screen of the game to OUT_DIR as PNG (default 1280x800); with\n"
                 "@2x, on a screen of twice the density.\n");
    return 2;
}

// One redraw as the window makes it: black first, then the controller's drawing, on a surface of
// ratio pixels to a point.
QImage render(apsis::Controller& controller, QSize size, int ratio) {
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    apsis::QtCanvas canvas(painter);
    apsis::CanvasFocus focus(canvas);
    controller.drawRect();
    return image;
}

// The redraw as it shows once the pictures are decoded at the sizes it draws them.
QImage renderDecoded(apsis::Controller& controller, QSize size, int ratio) {
    render(controller, size, ratio);
    apsis::QtPicture::waitForDecodes();
    return render(controller, size, ratio);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3)
        return usage();
    QSize size(1280, 800);
    int ratio = 1;
    if (argc == 3) {
        const auto match = QRegularExpression("^(\\d{1,5})x(\\d{1,5})(@2x)?$").match(argv[2]);
        if (!match.hasMatch())
            return usage();
        size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        ratio = match.hasCaptured(3) ? 2 : 1;
        if (size.width() < 1 || size.height() < 1)
            return usage();
    }
    // No display is needed: the pictures are drawn into images.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    const std::filesystem::path out(argv[1]);
    std::error_code error;
    std::filesystem::create_directories(out, error);
    if (error) {
        std::fprintf(stderr, "apsis_snapshot: cannot make %s: %s\n", out.c_str(),
                     error.message().c_str());
        return 1;
    }
    const auto folder = apsis::findResourceFolder(apsis::executableFolder());
    if (folder.empty())
        std::fprintf(stderr,
                     "apsis_snapshot: no resource folder; pictures and texts are missing\n");
    apsis::installResources(std::make_unique<apsis::QtResources>(folder));

    int failures = 0;
    for (const apsis::Scene& scene : apsis::scenes()) {
        auto controller = std::make_unique<apsis::Controller>();
        scene.play(*controller);
        const auto file = out / (scene.name + ".png");
        if (renderDecoded(*controller, size, ratio)
                .save(QString::fromStdString(file.string()), "PNG")) {
            std::printf("%s\n", file.c_str());
        } else {
            std::fprintf(stderr, "apsis_snapshot: cannot write %s\n", file.c_str());
            ++failures;
        }
    }
    apsis::QtPicture::waitForDecodes();
    return failures == 0 ? 0 : 1;
}
