#pragma once

#include "presentation/canvas.h"

#include <algorithm>
#include <cmath>

#include <QColor>

namespace apsis {

// A colour channel or an opacity held to 0..1; not a number counts as 0.
inline double unitInterval(double v) {
    return std::isnan(v) ? 0.0 : std::clamp(v, 0.0, 1.0);
}

// Colours outside 0..1 are held to it: the zoom indicator asks for negative opacities and means
// none at all.
inline QColor toQColor(const Color& c) {
    return QColor::fromRgbF(
        static_cast<float>(unitInterval(c.r)), static_cast<float>(unitInterval(c.g)),
        static_cast<float>(unitInterval(c.b)), static_cast<float>(unitInterval(c.a)));
}

inline bool finite(const Rect& r) {
    return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) &&
           std::isfinite(r.height);
}

} // namespace apsis
