#include "physics/numeric.h"
#include "presentation/clip.h"
#include "presentation/drawing.h"
#include "presentation/nav_parts.h"

#include <algorithm>
#include <cmath>

namespace apsis::nav {
namespace {

// Collects the pieces of a line that lie in the view into one path.
struct PathSink {
    Path* path;
    void moveTo(ClipPoint p) const { path->moveTo(toPoint(p.x, p.y)); }
    void lineTo(ClipPoint p) const { path->lineTo(toPoint(p.x, p.y)); }
};

// Only the parts of a line within the view (and a small margin) reach the canvas, so a path
// zoomed to millions of points across costs no more than one on screen.
ClippedPolyline<PathSink> clippedIn(const DrawView& view, Path& path) {
    const ClipWindow window{-kMargin, -kMargin, view.viewWidth + kMargin,
                            view.viewHeight + kMargin};
    return ClippedPolyline<PathSink>(window, PathSink{&path});
}

} // namespace

ViewPoint place(const DrawView& view, Offset at) {
    return view.worldToView(view.viewTarget.pos.x + at.x, view.viewTarget.pos.y + at.y);
}

bool isInView(const DrawView& view, ViewPoint p) {
    return p.x >= 0 && p.y >= 0 && p.x <= view.viewWidth && p.y <= view.viewHeight;
}

ViewPoint along(ViewPoint p, double angle, double reach) {
    return {p.x + reach * std::cos(angle), p.y + reach * std::sin(angle)};
}

double distance(ViewPoint a, ViewPoint b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

void drawPath(Canvas& canvas, const DrawView& view, const std::vector<Offset>& points,
              const Color& color) {
    Path path;
    auto line = clippedIn(view, path);
    ViewPoint last{};
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ViewPoint p = place(view, points[i]);
        // Points closer than a point apart add nothing to the picture; the last one always counts.
        if (i > 0 && i + 1 < points.size() && std::abs(p.x - last.x) < 1.0 &&
            std::abs(p.y - last.y) < 1.0)
            continue;
        line.add({p.x, p.y});
        last = p;
    }
    if (!path.elements.empty())
        canvas.strokePath(path, color);
}

void drawLine(Canvas& canvas, const DrawView& view, ViewPoint from, ViewPoint to,
              const Color& color) {
    Path path;
    auto line = clippedIn(view, path);
    line.add({from.x, from.y});
    line.add({to.x, to.y});
    if (!path.elements.empty())
        canvas.strokePath(path, color);
}

// A circle as a clipped polygon: of a huge circle only the arc the view can see is traced, finely
// enough that it stays within a point of the true curve.
void drawCircle(Canvas& canvas, const DrawView& view, ViewPoint c, double r, const Color& color) {
    if (!(r > 0.5) || !std::isfinite(r))
        return;
    const double w = view.viewWidth;
    const double h = view.viewHeight;
    const double nearX = std::clamp(c.x, 0.0, w) - c.x;
    const double nearY = std::clamp(c.y, 0.0, h) - c.y;
    const double farX = std::max(std::abs(c.x), std::abs(c.x - w));
    const double farY = std::max(std::abs(c.y), std::abs(c.y - h));
    // The view wholly inside or wholly outside the circle: nothing of it shows.
    if (std::hypot(nearX, nearY) > r + kMargin || std::hypot(farX, farY) < r - kMargin)
        return;
    double from = 0.0;
    double span = 2 * kPi;
    if (!isInView(view, c)) {
        // Seen from outside, the view lies within the angles of its corners.
        const double towards = std::atan2(h / 2 - c.y, w / 2 - c.x);
        double lo = 0.0;
        double hi = 0.0;
        for (const ViewPoint corner :
             {ViewPoint{0, 0}, ViewPoint{w, 0}, ViewPoint{0, h}, ViewPoint{w, h}}) {
            double a = std::atan2(corner.y - c.y, corner.x - c.x) - towards;
            a = std::remainder(a, 2 * kPi);
            lo = std::min(lo, a);
            hi = std::max(hi, a);
        }
        from = towards + lo - 0.01;
        span = hi - lo + 0.02;
    }
    // Chords short enough to stay within a quarter point of the arc.
    const double step = std::max(2 * std::sqrt(0.5 / r), 1e-6);
    const int count = std::clamp(static_cast<int>(span / step) + 1, 24, 2000);
    Path path;
    auto line = clippedIn(view, path);
    for (int i = 0; i <= count; ++i) {
        const double a = from + span * i / count;
        line.add({c.x + r * std::cos(a), c.y + r * std::sin(a)});
    }
    if (!path.elements.empty())
        canvas.strokePath(path, color);
}

// An arc of a small circle, every part of it on screen or near it.
void drawArc(Canvas& canvas, ViewPoint c, double r, double from, double span, const Color& color) {
    const int count = std::clamp(static_cast<int>(std::abs(span) * r / 3) + 1, 2, 400);
    Path arc;
    arc.moveTo(toPoint(c.x + r * std::cos(from), c.y + r * std::sin(from)));
    for (int i = 1; i <= count; ++i) {
        const double a = from + span * i / count;
        arc.lineTo(toPoint(c.x + r * std::cos(a), c.y + r * std::sin(a)));
    }
    canvas.strokePath(arc, color);
}

void drawLinePlate(Canvas& canvas, double x, double y, Size text, bool isTopLine) {
    const double high = isTopLine ? std::max(12.0, static_cast<double>(text.height)) : 12.0;
    canvas.fillRect(toRect(x - kPlatePad, y, static_cast<double>(text.width) + 2 * kPlatePad, high),
                    kPlateColor);
}

void drawCross(Canvas& canvas, ViewPoint p, double r, const Color& color) {
    Path cross;
    cross.moveTo(toPoint(p.x - r, p.y - r));
    cross.lineTo(toPoint(p.x + r, p.y + r));
    cross.moveTo(toPoint(p.x - r, p.y + r));
    cross.lineTo(toPoint(p.x + r, p.y - r));
    canvas.strokePath(cross, color);
}

void drawRing(Canvas& canvas, ViewPoint p, double r, const Color& color) {
    Path ring;
    ring.addOval(toRect(p.x - r, p.y - r, 2 * r, 2 * r));
    canvas.strokePath(ring, color);
}

// A ring of twelve dashes: a place the body is not yet at.
void drawDashedRing(Canvas& canvas, ViewPoint p, double r, const Color& color) {
    Path ring;
    constexpr int kDashes = 12;
    for (int i = 0; i < kDashes; ++i) {
        const double a = 2 * kPi * i / kDashes;
        const double b = a + kPi / kDashes;
        ring.moveTo(toPoint(p.x + r * std::cos(a), p.y + r * std::sin(a)));
        ring.lineTo(toPoint(p.x + r * std::cos((a + b) / 2), p.y + r * std::sin((a + b) / 2)));
        ring.lineTo(toPoint(p.x + r * std::cos(b), p.y + r * std::sin(b)));
    }
    canvas.strokePath(ring, color);
}

void drawDiamond(Canvas& canvas, ViewPoint p, double r, const Color& color) {
    Path diamond;
    diamond.moveTo(toPoint(p.x, p.y + r));
    diamond.lineTo(toPoint(p.x + r, p.y));
    diamond.lineTo(toPoint(p.x, p.y - r));
    diamond.lineTo(toPoint(p.x - r, p.y));
    canvas.fillPath(diamond, color);
}

void drawArrowHead(Canvas& canvas, ViewPoint tip, double angle, double length, double halfWidth,
                   const Color& color, bool isFilled) {
    const ViewPoint base = along(tip, angle + kPi, length);
    const double across = angle + kPi / 2;
    Path head;
    head.moveTo(toPoint(tip.x, tip.y));
    const ViewPoint left = along(base, across, halfWidth);
    const ViewPoint right = along(base, across, -halfWidth);
    head.lineTo(toPoint(left.x, left.y));
    head.lineTo(toPoint(right.x, right.y));
    head.lineTo(toPoint(tip.x, tip.y));
    if (isFilled)
        canvas.fillPath(head, color);
    else
        canvas.strokePath(head, color);
}

} // namespace apsis::nav
