#include "assets/resources.h"
#include "host/main_window.h"
#include "host/startup_failure.h"
#include "host/termination.h"
#include "platform/qt_resources.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include <QApplication>
#include <QIcon>
#include <QString>
#include <QStringList>

namespace {

constexpr const char* kUsage =
    "Usage: apsis [--help | --version]\n"
    "\n"
    "Apsis " APSIS_VERSION ", a 2-D orbital-flight game: fly a small craft among the Sun,\n"
    "the planets and the Moon under real gravity, through nine levels. Play with the\n"
    "keyboard; the menu's Instructions list the keys. F11 toggles full screen, Ctrl+Q quits.\n"
    "\n"
    "Options:\n"
    "  --help     print this text and exit\n"
    "  --version  print the game's version and exit\n";

// What Qt says while it looks for a display is kept back: when it finds one the messages are
// shown as usual, when it finds none it ends the process with abort(), and a player is told why
// in one line instead, with an ordinary failure status and no core dump.
std::vector<std::pair<QtMsgType, QString>> startupMessages;

void holdStartupMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        QStringList messages;
        for (const auto& held : startupMessages)
            messages << held.second;
        messages << message;
        const apsis::DisplayEnvironment environment{qEnvironmentVariable("QT_QPA_PLATFORM"),
                                                    qEnvironmentVariable("DISPLAY"),
                                                    qEnvironmentVariable("WAYLAND_DISPLAY")};
        std::fprintf(stderr, "apsis: cannot open the game's window: %s\n",
                     qPrintable(apsis::startupFailure(messages, environment)));
        std::_Exit(1);
    }
    startupMessages.emplace_back(type, message);
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1) {
        const std::string_view option = argv[1];
        const bool known = option == "--help" || option == "--version";
        if (known && argc == 2) {
            std::fputs(option == "--help" ? kUsage : "Apsis " APSIS_VERSION "\n", stdout);
            return 0;
        }
        std::fprintf(stderr, "apsis: unexpected argument '%s' (apsis --help lists the options)\n",
                     argv[known ? 2 : 1]);
        return 2;
    }

    // With no session bus, the D-Bus library that Qt loads would try to start one, running
    // dbus-launch from every folder on PATH. The game needs no bus and starts no program: an
    // address of no transport makes Qt's attempt fail at once.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    // On X, Qt hands each painted frame to the server in shared memory, and before it paints the
    // next one it waits for the server to be done reading: a round trip every frame, which cost
    // a fifth of the game's CPU in flight. A flight frame changes a few small areas, which are
    // cheaper to send over the connection itself. A value the user set is left alone.
    if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM"))
        qputenv("QT_XCB_NO_MITSHM", "1");

    // Qt sees no argument of ours: none of its own options (-platform, -stylesheet, ...) applies.
    // It keeps both for as long as the application lives, which is to the very end.
    static int qtArgc = 1;
    static char* qtArgv[] = {argv[0], nullptr};
    const QtMessageHandler defaultHandler = qInstallMessageHandler(holdStartupMessage);
    // The application is never destroyed: its platform's teardown reads the whole font
    // configuration again only to drop it, which can take most of a second, and the process ends
    // right after anyway.
    // What the game itself built, the window and everything in it, is destroyed as usual.
    static auto* const app = new QApplication(qtArgc, qtArgv);
    qInstallMessageHandler(defaultHandler);
    for (const auto& [type, message] : startupMessages)
        defaultHandler(type, QMessageLogContext(), message);
    startupMessages.clear();

    apsis::quitOnTermination();

    QApplication::setApplicationName("Apsis");
    QApplication::setApplicationVersion(APSIS_VERSION);
    QApplication::setDesktopFileName("io.github.apsis.Apsis");
    QApplication::setWindowIcon(QIcon(":/apsis.png"));

    const auto folder = apsis::findResourceFolder(apsis::executableFolder());
    if (folder.empty()) {
        // The game still runs, drawing what it can: say plainly why it looks empty.
        std::fprintf(stderr,
                     "apsis: no resource folder found (looked for resources/ beside the program "
                     "and ../share/apsis/); pictures and level texts will be missing\n");
    }
    apsis::installResources(std::make_unique<apsis::QtResources>(folder));

    auto window = std::make_unique<apsis::MainWindow>();
    window->show();
    const int status = app->exec();
    window.reset();
    // A picture still being decoded is finished while Qt is still there to decode it.
    apsis::QtPicture::waitForDecodes();
    return status;
}
