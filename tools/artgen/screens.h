#pragma once

#include <string>
#include <vector>

#include <QImage>

namespace apsis::artgen {

// One full-window screen or menu band, by its resource name.
struct Screen {
    std::string name;
    QImage image;
};

// The eight screens: splash, menu, the four highlighted menu entries, about and instructions.
std::vector<Screen> drawScreens();

// The about and instructions pages.
QImage drawAbout();
QImage drawInstructions();

} // namespace apsis::artgen
