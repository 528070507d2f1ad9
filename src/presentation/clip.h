#pragma once

#include <vector>

namespace apsis {

// Cutting geometry down to a window before it is drawn. A shape that reaches millions of points
// beyond the surface is drawn correctly, but walking all of it costs what its size says; cut to a
// window a little larger than the surface, the visible part is the same and costs what it looks
// like. The plane's y may point either way.

struct ClipPoint {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const ClipPoint&) const = default;
};

// The window, its edges included.
struct ClipWindow {
    double xMin = 0.0;
    double yMin = 0.0;
    double xMax = 0.0;
    double yMax = 0.0;
};

// Cuts the segment from a to b to the window; false when no part of it lies inside. An end inside
// the window stays exactly as it was, so a caller can tell a cut end from a kept one.
bool clipSegment(ClipPoint& a, ClipPoint& b, const ClipWindow& window);

// The part of a polygon (closed implicitly) inside the window. Outside parts are replaced by runs
// along the window's edge, so inside the window every point keeps its winding number, and a fill
// looks the same there under either fill rule.
std::vector<ClipPoint> clipPolygon(const std::vector<ClipPoint>& polygon, const ClipWindow& window);

// Builds clipped polylines point by point: each piece that lies inside the window is handed on
// as a start, then the points it runs through.
template <class Sink>
class ClippedPolyline {
  public:
    ClippedPolyline(const ClipWindow& window, Sink sink) : window_(window), sink_(sink) {}

    void add(ClipPoint p) {
        if (hasLast_) {
            ClipPoint a = last_;
            ClipPoint b = p;
            if (!clipSegment(a, b, window_)) {
                isJoined_ = false;
            } else {
                if (!isJoined_ || !(a == last_))
                    sink_.moveTo(a);
                sink_.lineTo(b);
                isJoined_ = b == p;
            }
        }
        last_ = p;
        hasLast_ = true;
    }

  private:
    ClipWindow window_;
    Sink sink_;
    ClipPoint last_;
    bool hasLast_ = false;
    bool isJoined_ = false; // the line reached the last point uncut
};

} // namespace apsis
