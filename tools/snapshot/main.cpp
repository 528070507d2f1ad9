// apsis_snapshot OUT_DIR [WIDTHxHEIGHT[@RATIO] [NAME_PART]]
//
// Renders every screen a player meets into OUT_DIR, one PNG each, through the same canvas as the
// game's window but offscreen: a way to look at all of the game's pictures in a minute. With a
// device pixel ratio (@2), the screens are drawn as on a high-density display: each point of the
// window is RATIO pixels wide, and the PNGs are RATIO times as large.

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
                 "usage: apsis_snapshot OUT_DIR [WIDTHxHEIGHT[@RATIO] [NAME_PART]]\n"
                 "Renders every screen of the game to OUT_DIR as PNG (default 1280x800), at\n"
                 "RATIO pixels per point (1 to 4, default 1), or only those whose name\n"
                 "contains NAME_PART.\n");
    return 2;
}

// One redraw as the window makes it: black first, then the controller's drawing.
QImage render(apsis::Controller& controller, QSize size, double ratio) {
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
QImage renderDecoded(apsis::Controller& controller, QSize size, double ratio) {
    render(controller, size, ratio);
    apsis::QtPicture::waitForDecodes();
    return render(controller, size, ratio);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 4)
        return usage();
    QSize size(1280, 800);
    double ratio = 1.0;
    if (argc >= 3) {
        const auto match =
            QRegularExpression("^(\\d{1,5})x(\\d{1,5})(?:@(\\d(?:\\.\\d{1,2})?)x?)?$")
                .match(argv[2]);
        if (!match.hasMatch())
            return usage();
        size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        if (match.hasCaptured(3))
            ratio = match.captured(3).toDouble();
        if (size.width() < 1 || size.height() < 1 || ratio < 1.0 || ratio > 4.0)
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
    const std::string part = argc > 3 ? argv[3] : "";
    for (const apsis::Scene& scene : apsis::scenes()) {
        if (scene.name.find(part) == std::string::npos)
            continue;
        auto controller = std::make_unique<apsis::Controller>();
        scene.play(*controller);
        if (controller->isShowingNavAids) {
            // The whole path, as the window's worker would have found it by then.
            controller->navPrediction.settle();
            controller->updateNavAids();
        }
        if (controller->plan.isSet) {
            // The same for the planned burn's path.
            controller->plannedPath.settle();
            controller->afterWorldStep();
        }
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
