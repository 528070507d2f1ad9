#include "platform/qt_clip.h"

#include <array>
#include <functional>

namespace apsis {

bool clipSegment(QPointF& a, QPointF& b, const QRectF& window) {
    // Liang and Barsky: the segment is a + t (b - a) for t in 0..1; each edge of the window
    // narrows the range of t that lies on its inner side.
    const double dx = b.x() - a.x();
    const double dy = b.y() - a.y();
    double t0 = 0.0;
    double t1 = 1.0;
    const std::array<double, 4> p{-dx, dx, -dy, dy};
    const std::array<double, 4> q{a.x() - window.left(), window.right() - a.x(),
                                  a.y() - window.top(), window.bottom() - a.y()};
    for (std::size_t i = 0; i < 4; ++i) {
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
    const QPointF start = a;
    if (t1 < 1.0)
        b = QPointF(start.x() + t1 * dx, start.y() + t1 * dy);
    if (t0 > 0.0)
        a = QPointF(start.x() + t0 * dx, start.y() + t0 * dy);
    return true;
}

namespace {

// One pass of Sutherland and Hodgman: keeps the side of one edge of the window.
QPolygonF clipToEdge(const QPolygonF& polygon, const std::function<bool(const QPointF&)>& inside,
                     const std::function<QPointF(const QPointF&, const QPointF&)>& cross) {
    QPolygonF kept;
    if (polygon.isEmpty())
        return kept;
    kept.reserve(polygon.size() + 4);
    QPointF previous = polygon.back();
    bool previousInside = inside(previous);
    for (const QPointF& point : polygon) {
        const bool pointInside = inside(point);
        if (pointInside != previousInside)
            kept.append(cross(previous, point));
        if (pointInside)
            kept.append(point);
        previous = point;
        previousInside = pointInside;
    }
    return kept;
}

} // namespace

QPolygonF clipPolygon(const QPolygonF& polygon, const QRectF& window) {
    const double left = window.left();
    const double right = window.right();
    const double top = window.top();
    const double bottom = window.bottom();
    // Where the edge from a to b crosses x = edge, or y = edge.
    const auto atX = [](double edge) {
        return [edge](const QPointF& a, const QPointF& b) {
            const double t = (edge - a.x()) / (b.x() - a.x());
            return QPointF(edge, a.y() + t * (b.y() - a.y()));
        };
    };
    const auto atY = [](double edge) {
        return [edge](const QPointF& a, const QPointF& b) {
            const double t = (edge - a.y()) / (b.y() - a.y());
            return QPointF(a.x() + t * (b.x() - a.x()), edge);
        };
    };
    QPolygonF result = clipToEdge(
        polygon, [left](const QPointF& p) { return p.x() >= left; }, atX(left));
    result = clipToEdge(
        result, [right](const QPointF& p) { return p.x() <= right; }, atX(right));
    result = clipToEdge(
        result, [top](const QPointF& p) { return p.y() >= top; }, atY(top));
    result = clipToEdge(
        result, [bottom](const QPointF& p) { return p.y() <= bottom; }, atY(bottom));
    return result;
}

} // namespace apsis
