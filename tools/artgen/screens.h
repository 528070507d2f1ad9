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

// The eight screens: splash, menu, the four highlighted menu entries, about and instructions, at
// scale pixels to a pixel of the window's own size. Laid out in the window's pixels, they look
// alike at any scale, only finer.
std::vector<Screen> drawScreens(int scale);

// The about and instructions pages.
QImage drawAbout(int scale);
QImage drawInstructions(int scale);

} // namespace apsis::artgen
