#pragma once

#include <QImage>

namespace apsis::artgen {

// The sizes in pixels of the launcher's icon, from the smallest a panel shows to the largest a
// software centre asks for.
inline constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};

// The launcher's icon, size pixels square on a transparent background: Earth with an orbit
// around it and the craft on its way along the orbit. Each size is drawn for itself: below 48
// pixels the globe and the craft give way to plain shapes with bolder lines, which stay legible
// down to 16 pixels.
QImage drawIcon(int size);

} // namespace apsis::artgen
