#include "host/termination.h"

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>

namespace apsis {
namespace {

// A signal handler may do almost nothing: it writes one byte, and the event loop, which watches
// the other end, does the quitting.
int wakeUp[2] = {-1, -1};

void onTerminationSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(wakeUp[0], &byte, 1);
}

} // namespace

void quitOnTermination() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, wakeUp) != 0)
        return; // the signals then end the process as they would anyway
    auto* notifier =
        new QSocketNotifier(wakeUp[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier] {
        notifier->setEnabled(false); // one request is enough
        QCoreApplication::quit();
    });
    struct sigaction action = {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT})
        ::sigaction(signal, &action, nullptr);
}

} // namespace apsis
