#include "presentation/clip.h"

namespace apsis {

bool clipSegment(ClipPoint& a, ClipPoint& b, const ClipWindow& window) {
    // Liang and Barsky: the segment is a + t (b - a) for t in 0..1; each edge of the window
    // narrows the range of t that lies on its inner side.
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    double t0 = 0.0;
    double t1 = 1.0;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - window.xMin, window.xMax - a.x, a.y - window.yMin,
                         window.yMax - a.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0)
                return false; // parallel to this edge and outside it
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0) {
            if (t > t1)
                return false;
            if (t > t0)
                t0 = t;
        } else {
            if (t < t0)
                return false;
            if (t < t1)
                t1 = t;
        }
    }
    const ClipPoint start = a;
    if (t1 < 1.0)
        b = {start.x + t1 * dx, start.y + t1 * dy};
    if (t0 > 0.0)
        a = {start.x + t0 * dx, start.y + t0 * dy};
    return true;
}

namespace {

// One pass of Sutherland and Hodgman: keeps the side of one edge of the window where the points'
// coordinate (x or y) is at least edge, or with keepBelow at most edge.
std::vector<ClipPoint> clipToEdge(const std::vector<ClipPoint>& polygon, double ClipPoint::*axis,
                                  double edge, bool keepBelow) {
    std::vector<ClipPoint> kept;
    if (polygon.empty())
        return kept;
    kept.reserve(polygon.size() + 4);
    const auto inside = [&](const ClipPoint& p) {
        return keepBelow ? p.*axis <= edge : p.*axis >= edge;
    };
    // Where the edge from a to b crosses the window's edge.
    const auto cross = [&](const ClipPoint& a, const ClipPoint& b) {
        const double t = (edge - a.*axis) / (b.*axis - a.*axis);
        ClipPoint at{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
        at.*axis = edge;
        return at;
    };
    ClipPoint previous = polygon.back();
    bool previousInside = inside(previous);
    for (const ClipPoint& point : polygon) {
        const bool pointInside = inside(point);
        if (pointInside != previousInside)
            kept.push_back(cross(previous, point));
        if (pointInside)
            kept.push_back(point);
        previous = point;
        previousInside = pointInside;
    }
    return kept;
}

} // namespace

std::vector<ClipPoint> clipPolygon(const std::vector<ClipPoint>& polygon,
                                   const ClipWindow& window) {
    std::vector<ClipPoint> result = clipToEdge(polygon, &ClipPoint::x, window.xMin, false);
    result = clipToEdge(result, &ClipPoint::x, window.xMax, true);
    result = clipToEdge(result, &ClipPoint::y, window.yMin, false);
    return clipToEdge(result, &ClipPoint::y, window.yMax, true);
}

} // namespace apsis
