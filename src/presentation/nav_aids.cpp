#include "presentation/nav_aids.h"

#include "physics/numeric.h"
#include "presentation/canvas.h"
#include "presentation/clip.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"
#include "presentation/format.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace apsis {
namespace {

// Colours that none of the display's own marks use: the display is green, grey and blue.
const Color kPathColor{0.35, 0.75, 1.0, 0.9};
const Color kHighColor{1.0, 0.6, 0.2, 1.0};
const Color kLowColor{1.0, 0.45, 0.85, 1.0};
const Color kMotionColor{1.0, 1.0, 0.35, 1.0};
const Color kZoneColor{0.35, 1.0, 0.35, 0.55};
const Color kTargetColor{1.0, 0.4, 1.0, 1.0};
const Color kImpactColor{1.0, 0.25, 0.25, 1.0};
const TextStyle kAidStyle{FontFamily::Courier, 12.0f, Color{0.55, 0.85, 1.0, 1.0}};
const TextStyle kMarkStyle{FontFamily::Label, 11.0f, Color{0.8, 0.9, 1.0, 1.0}};

constexpr double kMargin = 4.0;       // points beyond the view edges still worth stroking
constexpr double kMotionReach = 28.0; // points from the craft to its direction marks

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

ViewPoint place(const DrawView& view, Offset at) {
    return view.worldToView(view.viewTarget.pos.x + at.x, view.viewTarget.pos.y + at.y);
}

bool isInView(const DrawView& view, ViewPoint p) {
    return p.x >= 0 && p.y >= 0 && p.x <= view.viewWidth && p.y <= view.viewHeight;
}

void drawPath(Canvas& canvas, const DrawView& view, const NavAids& aids) {
    Path path;
    auto line = clippedIn(view, path);
    ViewPoint last{};
    for (std::size_t i = 0; i < aids.path.size(); ++i) {
        const ViewPoint p = place(view, aids.path[i]);
        // Points closer than a point apart add nothing to the picture; the last one always counts.
        if (i > 0 && i + 1 < aids.path.size() && std::abs(p.x - last.x) < 1.0 &&
            std::abs(p.y - last.y) < 1.0)
            continue;
        line.add({p.x, p.y});
        last = p;
    }
    if (!path.elements.empty())
        canvas.strokePath(path, kPathColor);
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

// A mark's name beside it, left out where the display writes (the columns at the top, the scale
// along the bottom, the fuel gauge): the lines under the left column, in the marks' colours, say
// the same.
void drawLabel(Canvas& canvas, const DrawView& view, ViewPoint p, const std::string& text) {
    const double x = p.x + 7;
    const double y = p.y + 3;
    if (y < 36 || y + 14 > view.viewHeight - 150 || x + 60 > view.viewWidth - 30)
        return;
    canvas.drawText(text, toPoint(x, y), kMarkStyle);
}

// A small diamond on the path, named.
void drawDiamond(Canvas& canvas, const DrawView& view, const NavMark& mark, const Color& color,
                 const std::string& label) {
    const ViewPoint p = place(view, mark.at);
    if (!isInView(view, p))
        return;
    Path diamond;
    diamond.moveTo(toPoint(p.x, p.y + 5));
    diamond.lineTo(toPoint(p.x + 5, p.y));
    diamond.lineTo(toPoint(p.x, p.y - 5));
    diamond.lineTo(toPoint(p.x - 5, p.y));
    canvas.fillPath(diamond, color);
    drawLabel(canvas, view, p, label);
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

// Ahead of the craft a ring with a dot (the way it moves), behind it a ring with a cross.
void drawMotion(Canvas& canvas, const DrawView& view, const NavAids& aids) {
    if (!aids.hasMotion)
        return;
    const ViewPoint c = place(view, aids.craft);
    const ViewPoint ahead{c.x + aids.motion.x * kMotionReach, c.y + aids.motion.y * kMotionReach};
    const ViewPoint behind{c.x - aids.motion.x * kMotionReach, c.y - aids.motion.y * kMotionReach};
    drawRing(canvas, ahead, 5, kMotionColor);
    Path dot;
    dot.addOval(toRect(ahead.x - 1.5, ahead.y - 1.5, 3, 3));
    canvas.fillPath(dot, kMotionColor);
    drawRing(canvas, behind, 5, kMotionColor);
    drawCross(canvas, behind, 3.5, kMotionColor);
}

std::string inHowLong(double time) {
    return time >= 0 ? " in " + formatTime(time) : "";
}

// The aids' own lines, under the display's left column and in its rhythm of 12 points.
void drawNotes(Canvas& canvas, const DrawView& view, const NavAids& aids) {
    // Each line in the colour of its mark on the path, so the text is the marks' legend.
    std::vector<std::pair<std::string, Color>> lines;
    const Color plain = kAidStyle.color;
    if (aids.hasOrbit) {
        const std::string around =
            *aids.orbitBody != '\0' ? std::string(" (") + aids.orbitBody + ")" : "";
        if (aids.isEscaping)
            lines.emplace_back("High" + around + ": escape", kHighColor);
        else
            lines.emplace_back("High" + around + ": " + formatDist(aids.high.value) +
                                   (aids.isCircular ? "" : inHowLong(aids.high.time)),
                               kHighColor);
        lines.emplace_back("Low" + around + ": " + formatDist(aids.low.value) +
                               (aids.isCircular ? "" : inHowLong(aids.low.time)),
                           kLowColor);
    }
    if (aids.hasZone) {
        const std::string outer = formatDist(aids.zoneOuter - aids.zoneSurface);
        lines.emplace_back(aids.zoneInner > 0
                               ? "Zone: " + formatDist(aids.zoneInner - aids.zoneSurface) + " to " +
                                     outer + " from " + aids.zoneBody
                               : "Zone: under " + outer + " from " + aids.zoneBody,
                           plain);
    }
    if (aids.approach.isShown)
        lines.emplace_back(std::string("Closest to ") + aids.approach.name + ": " +
                               formatDist(aids.approach.value) + inHowLong(aids.approach.time),
                           kTargetColor);
    if (aids.impact.isShown)
        lines.emplace_back(std::string("Impact on ") + aids.impact.name +
                               inHowLong(aids.impact.time),
                           kImpactColor);
    double y = view.viewHeight - 94;
    for (const auto& [line, color] : lines) {
        TextStyle style = kAidStyle;
        style.color = color;
        canvas.drawText(line, toPoint(10, y), style);
        y -= 12;
    }
}

} // namespace

void drawNavAids(const DrawView& view, const NavAids& aids) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    if (aids.hasZone) {
        const ViewPoint c = place(view, aids.zoneCentre);
        drawCircle(*canvas, view, c, view.lengthToView(aids.zoneInner), kZoneColor);
        drawCircle(*canvas, view, c, view.lengthToView(aids.zoneOuter), kZoneColor);
    }
    drawPath(*canvas, view, aids);
    if (aids.hasOrbit && !aids.isCircular) {
        if (!aids.isEscaping)
            drawDiamond(*canvas, view, aids.high, kHighColor, "High");
        drawDiamond(*canvas, view, aids.low, kLowColor, "Low");
    }
    if (aids.hasTarget)
        drawRing(*canvas, place(view, aids.target), 10, kTargetColor);
    if (aids.approach.isShown) {
        const ViewPoint p = place(view, aids.approach.at);
        if (isInView(view, p)) {
            drawCross(*canvas, p, 4, kTargetColor);
            drawLabel(*canvas, view, p, "Closest");
        }
    }
    if (aids.impact.isShown) {
        const ViewPoint p = place(view, aids.impact.at);
        if (isInView(view, p)) {
            drawCross(*canvas, p, 6, kImpactColor);
            drawLabel(*canvas, view, p, "Impact");
        }
    }
    drawMotion(*canvas, view, aids);
    drawNotes(*canvas, view, aids);
}

} // namespace apsis
