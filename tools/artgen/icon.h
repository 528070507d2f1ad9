#pragma once

#include <QImage>

namespace apsis::artgen {

// The launcher's icon, size pixels square on a transparent background: Earth with an orbit
// around it and the craft on its way along the orbit.
QImage drawIcon(int size);

} // namespace apsis::artgen
