#include "host/startup_failure.h"

#include <QRegularExpression>

namespace apsis {
namespace {

// The Debian package that brings each of Qt's desktop platform plugins.
QString packageOf(const QString& platform) {
    if (platform.startsWith("wayland"))
        return "qt6-wayland";
    if (platform == "xcb")
        return "qt6-qpa-plugins";
    return {};
}

// The platform names that a message of the given shape names, in the order Qt tried them.
QStringList platformsIn(const QStringList& messages, const QString& shape) {
    const QRegularExpression pattern(shape.arg("\"([^\"]*)\""));
    QStringList names;
    for (const QString& message : messages) {
        const auto match = pattern.match(message);
        if (match.hasMatch() && !names.contains(match.captured(1)))
            names << match.captured(1);
    }
    return names;
}

// Qt's own list of the platforms it has, as its last word gives it.
QString availablePlatforms(const QStringList& messages) {
    static const QRegularExpression list("Available platform plugins are: ([^\n]*?)\\.?\\s*$");
    const auto match = messages.isEmpty() ? QRegularExpressionMatch() : list.match(messages.last());
    return match.hasMatch() ? match.captured(1) : QString();
}

// Why a platform that was found could not start: for the desktop ones, the display it looked for.
QString unreachable(const QString& platform, const DisplayEnvironment& environment) {
    if (platform.startsWith("wayland")) {
        return environment.waylandDisplay.isEmpty()
                   ? "no Wayland display could be reached (WAYLAND_DISPLAY is not set)"
                   : QString("no Wayland display could be reached at \"%1\"")
                         .arg(environment.waylandDisplay);
    }
    if (platform == "xcb") {
        return environment.x11Display.isEmpty()
                   ? "no X display could be reached (DISPLAY is not set)"
                   : QString("no X display could be reached at \"%1\"").arg(environment.x11Display);
    }
    return QString("Qt's platform \"%1\" could not start").arg(platform);
}

} // namespace

QString startupFailure(const QStringList& messages, const DisplayEnvironment& environment) {
    const QStringList missing = platformsIn(messages, "Could not find the Qt platform plugin %1");
    const QStringList failed = platformsIn(messages, "Could not load the Qt platform plugin %1");
    const bool askedFor = !environment.platform.isEmpty();

    if (!askedFor && missing.isEmpty() && environment.x11Display.isEmpty() &&
        environment.waylandDisplay.isEmpty())
        return "no display could be reached (neither WAYLAND_DISPLAY nor DISPLAY is set)";

    // A missing plugin comes first: it is the cause that installing a package mends.
    QStringList causes;
    for (const QString& platform : missing) {
        const QString package = packageOf(platform);
        if (!package.isEmpty()) {
            causes << QString("Qt's \"%1\" platform plugin is not installed (Debian package %2)")
                          .arg(platform, package);
        } else {
            const QString available = availablePlatforms(messages);
            causes << QString("Qt has no platform \"%1\"").arg(platform) +
                          (available.isEmpty() ? QString()
                                               : QString(" (it has %1)").arg(available));
        }
    }
    for (const QString& platform : failed)
        causes << unreachable(platform, environment);

    if (causes.isEmpty()) {
        // Not a failure of the platforms: Qt's own first line says what it was.
        const QString qtSays = messages.isEmpty() ? QString() : messages.last().section('\n', 0, 0);
        if (qtSays.isEmpty() || qtSays.contains("platform plugin"))
            causes << "no display could be reached";
        else
            causes << qtSays.trimmed();
    }
    const QString because = causes.join("; ");
    return askedFor
               ? QString("QT_QPA_PLATFORM asks for \"%1\": %2").arg(environment.platform, because)
               : because;
}

} // namespace apsis
