#include "host/startup_failure.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

// What Qt 6 says, word for word, on the way to giving up.
const QString kNotFound = "Could not find the Qt platform plugin \"%1\" in \"\"";
const QString kNotLoaded = "Could not load the Qt platform plugin \"%1\" in \"\" even though it "
                           "was found.";
const QString kGivesUp = "This application failed to start because no Qt platform plugin could "
                         "be initialized. Reinstalling the application may fix this problem.\n\n"
                         "Available platform plugins are: minimal, offscreen, xcb.\n";

// Each line names what went wrong and, where a package mends it, the package.
TEST(StartupFailureTest, NamesTheMissingPluginTheDisplayOrThePlatformAskedFor) {
    const struct {
        QStringList messages;
        DisplayEnvironment environment;
        QString expected;
    } cases[] = {
        // A Wayland desktop without Qt's Wayland plugin, and no Xwayland to fall back on.
        {{kNotFound.arg("wayland"), "could not connect to display ", kNotLoaded.arg("xcb"),
          kGivesUp},
         {"", "", "wayland-0"},
         "Qt's \"wayland\" platform plugin is not installed (Debian package qt6-wayland); "
         "no X display could be reached (DISPLAY is not set)"},
        // Both displays named, neither there.
        {{"Failed to create wl_display (No such file or directory)", kNotLoaded.arg("wayland"),
          "could not connect to display :7", kNotLoaded.arg("xcb"), kGivesUp},
         {"", ":7", "wayland-9"},
         "no Wayland display could be reached at \"wayland-9\"; "
         "no X display could be reached at \":7\""},
        // Nothing to reach at all: a text console or a service.
        {{"could not connect to display ", kNotLoaded.arg("xcb"), kGivesUp},
         {"", "", ""},
         "no display could be reached (neither WAYLAND_DISPLAY nor DISPLAY is set)"},
        // The platform asked for does not exist: Qt's own list shows what does.
        {{kNotFound.arg("nonexistent"), kGivesUp},
         {"nonexistent", ":0", ""},
         "QT_QPA_PLATFORM asks for \"nonexistent\": Qt has no platform \"nonexistent\" "
         "(it has minimal, offscreen, xcb)"},
        // The platform asked for is not installed, or has no display.
        {{kNotFound.arg("wayland"), kGivesUp},
         {"wayland", "", "wayland-0"},
         "QT_QPA_PLATFORM asks for \"wayland\": Qt's \"wayland\" platform plugin is not installed "
         "(Debian package qt6-wayland)"},
        {{"could not connect to display ", kNotLoaded.arg("xcb"), kGivesUp},
         {"xcb", "", "wayland-0"},
         "QT_QPA_PLATFORM asks for \"xcb\": no X display could be reached (DISPLAY is not set)"},
        // Another plugin that finds no display of its own.
        {{kNotLoaded.arg("vnc"), kGivesUp},
         {"vnc", "", ""},
         "QT_QPA_PLATFORM asks for \"vnc\": Qt's platform \"vnc\" could not start"},
        // Words that a later Qt may choose: the line still says what is known.
        {{"qt.qpa: something new", kGivesUp}, {"", ":0", ""}, "no display could be reached"},
        {{"Cannot mix incompatible Qt library (6.4.2) with this library (6.5.0)"},
         {"", ":0", ""},
         "Cannot mix incompatible Qt library (6.4.2) with this library (6.5.0)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(startupFailure(c.messages, c.environment).toStdString(), c.expected.toStdString())
            << c.messages.join(" | ").toStdString();
}

} // namespace
} // namespace apsis
