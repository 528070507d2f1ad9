#include "assets/resources.h"
#include "host/main_window.h"
#include "platform/qt_resources.h"

#include <cstdio>
#include <memory>

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Apsis");
    QApplication::setDesktopFileName("io.github.apsis.Apsis");

    const auto folder = apsis::findResourceFolder(apsis::executableFolder());
    if (folder.empty()) {
        // The game still runs, drawing what it can: say plainly why it looks empty.
        std::fprintf(stderr,
                     "apsis: no resource folder found (looked for resources/ beside the program "
                     "and ../share/apsis/); pictures and level texts will be missing\n");
    }
    apsis::installResources(std::make_unique<apsis::QtResources>(folder));

    apsis::MainWindow window;
    window.show();
    return QApplication::exec();
}
