#pragma once

#include "presentation/canvas.h"

#include <algorithm>
#include <cmath>

#include <QColor>

namespace apsis {

// How far ink may reach beyond the geometry it was drawn from, points. What is drawn and what is
// known to change on screen are both judged by these, so that they agree.
inline constexpr double kEdgeReach = 2.0;   // antialiased edges of fills and pictures
inline constexpr double kStrokeReach = 8.0; // a mitre, up to 5 from its corner, and a soft edge
inline constexpr double kTextReach = 8.0;   // letters overhanging their measured box

// A colour channel or an opacity held to 0..1; not a number counts as 0.
inline double unitInterval(double v) {
    return std::isnan(v) ? 0.0 : std::clamp(v, 0.0, 1.0);
}

// Channels and opacities outside 0..1 are clamped into it. The zoom indicator fades out through
// opacities below 0: clamped to 0, they draw nothing, which is what it means by them.
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
