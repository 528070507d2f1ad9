#pragma once

#include <QPointF>
#include <QPolygonF>
#include <QRectF>

namespace apsis {

// Cutting geometry down to a window before Qt sees it. Qt draws a shape that reaches millions of
// points beyond the surface correctly, but its rasterizer walks all of it; cut to a window a
// little larger than the surface, the visible part is the same and costs what it looks like.

// Cuts the segment from a to b to the window; false when no part of it lies inside.
bool clipSegment(QPointF& a, QPointF& b, const QRectF& window);

// The part of a polygon (closed implicitly) inside the window. Outside parts are replaced by runs
// along the window's edge, so inside the window every point keeps its winding number, and a fill
// looks the same there under either fill rule.
QPolygonF clipPolygon(const QPolygonF& polygon, const QRectF& window);

} // namespace apsis
