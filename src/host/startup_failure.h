#pragma once

#include <QString>
#include <QStringList>

namespace apsis {

// What decides which of Qt's platforms are tried, as the process found it.
struct DisplayEnvironment {
    QString platform;       // QT_QPA_PLATFORM: the platforms asked for, empty when not set
    QString x11Display;     // DISPLAY, empty when not set
    QString waylandDisplay; // WAYLAND_DISPLAY, empty when not set
};

// Why no window could be opened, in a few words for the player: read from what Qt said while it
// tried its platforms (messages, ending with the fatal one) and from the environment that chose
// them. Names the platform plugin that is missing and the package that brings it, the display
// that could not be reached, or the platform asked for that does not exist.
QString startupFailure(const QStringList& messages, const DisplayEnvironment& environment);

} // namespace apsis
