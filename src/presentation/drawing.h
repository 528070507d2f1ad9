#pragma once

#include "presentation/canvas.h"

#include <string>

namespace apsis {

// Small pieces the drawing operations share. Coordinates are worked out in double and narrowed
// here, at the last moment, to the canvas's single precision.

inline Point toPoint(double x, double y) {
    return {static_cast<float>(x), static_cast<float>(y)};
}

inline Rect toRect(double x, double y, double width, double height) {
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(width),
            static_cast<float>(height)};
}

// Draws text with its box centred on centreX and its bottom at y, or with aroundMiddle its middle
// at y; returns the measured size.
Size drawCentredText(Canvas& canvas, const std::string& text, const TextStyle& style,
                     double centreX, double y, bool aroundMiddle = false);

// Loads a screen's picture from the resource folder and draws the whole of it into dest, whatever
// its proportions. A missing picture draws nothing.
void drawScreenPicture(Canvas& canvas, const std::string& name, const Rect& dest);

// A bevelled panel: five one-point rings from white to dark grey around a black inside. The
// rectangle is the outermost ring's.
void fillBevelledPanel(Canvas& canvas, double x, double y, double width, double height);

} // namespace apsis
