#include "physics/numeric.h"
#include "presentation/drawing.h"
#include "presentation/format.h"
#include "presentation/nav_parts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace apsis::nav {
namespace {

double angleTo(ViewPoint from, ViewPoint to) {
    return std::atan2(to.y - from.y, to.x - from.x);
}

// Holds small boxes along a line, so no label covers it.
void holdLine(LabelPlacer& placer, ViewPoint from, ViewPoint to, double reach) {
    const double length = distance(from, to);
    for (double s = 0; s <= length; s += reach * 2) {
        placer.hold(boxAround(
            {from.x + (to.x - from.x) * s / length, from.y + (to.y - from.y) * s / length}, reach));
    }
    placer.hold(boxAround(to, reach));
}

// An arrow at the edge of the view, from its middle towards a place beyond it, and its name.
void drawEdgeArrow(Canvas& canvas, const DrawView& view, ViewPoint at, const Color& color,
                   std::string name, LabelPlacer& placer, std::vector<Label>& labels) {
    if (isInView(view, at))
        return;
    const ViewPoint middle{view.viewWidth / 2, view.viewHeight / 2};
    const double dx = at.x - middle.x;
    const double dy = at.y - middle.y;
    const double length = std::hypot(dx, dy);
    if (!(length > 0) || !std::isfinite(length))
        return;
    // The edges the arrow keeps to: the fuel gauge on the right, the scale bar at the bottom.
    const Box edge{16, 46, view.viewWidth - 34, view.viewHeight - 16};
    double s = 1.0;
    if (dx != 0)
        s = std::min(s, ((dx > 0 ? edge.right : edge.left) - middle.x) / dx);
    if (dy != 0)
        s = std::min(s, ((dy > 0 ? edge.top : edge.bottom) - middle.y) / dy);
    const double a = std::atan2(dy, dx);
    ViewPoint tip{middle.x + dx * s, middle.y + dy * s};
    const auto base = [&] { return along(tip, a + kPi, 7); };
    for (double back = 0; back < length * s - 20 && !placer.isFree(boxAround(base(), 9)); back += 4)
        tip = {middle.x + dx * (s - back / length), middle.y + dy * (s - back / length)};
    // On a dark casing, so that it shows on a light picture too.
    drawArrowHead(canvas, along(tip, a, 1.5), a, 17, 9, kCasingColor, true);
    drawArrowHead(canvas, tip, a, 14, 7, color, true);
    placer.hold(boxAround(base(), 9));
    labels.push_back({std::move(name), base(), 9});
}

} // namespace

CraftReach craftReach(const DrawView& view) {
    // The craft's picture is mostly empty margin round a narrow hull that reaches nearly to its
    // edge: other marks may lie on the margin, the craft's own stand beyond the hull's tip, in
    // the view.
    const double r = view.craftRadius;
    const double hull = std::clamp(
        0.9 * r, 12.0, std::max(12.0, std::min(view.viewWidth, view.viewHeight) / 2 - 60));
    return {std::clamp(0.25 * r, 12.0, 120.0), hull, hull + 16, hull + 28, hull + 50};
}

// The nose line from the craft the way it points, with a filled head; while the craft still
// turns, an open head where the nose will come to rest. Drawn after every other mark, so none
// covers it.
void drawHeading(Canvas& canvas, const NavAids& aids, ViewPoint craft, const CraftReach& reach,
                 LabelPlacer& placer) {
    // Each white shape on a dark casing, so it shows on the craft's own light picture too.
    if (aids.isTurning) {
        const ViewPoint tip = along(craft, aids.noseSettles, reach.nose + 3);
        drawArrowHead(canvas, along(tip, aids.noseSettles, 1.5), aids.noseSettles, 12, 7,
                      kCasingColor, true);
        drawArrowHead(canvas, tip, aids.noseSettles, 9, 5, kNoseColor, false);
        placer.hold(boxAround(along(tip, aids.noseSettles + kPi, 4), 6));
    }
    const ViewPoint from = along(craft, aids.nose, reach.hull - 3);
    const ViewPoint tip = along(craft, aids.nose, reach.nose);
    Path casing;
    for (const double side : {-1.0, 1.0}) {
        const ViewPoint a = along(from, aids.nose + kPi / 2, side);
        const ViewPoint b = along(tip, aids.nose + kPi / 2, side);
        casing.moveTo(toPoint(a.x, a.y));
        casing.lineTo(toPoint(b.x, b.y));
    }
    canvas.strokePath(casing, kCasingColor);
    drawArrowHead(canvas, along(tip, aids.nose, 1.5), aids.nose, 11, 5.5, kCasingColor, true);
    Path line;
    line.moveTo(toPoint(from.x, from.y));
    line.lineTo(toPoint(tip.x, tip.y));
    canvas.strokePath(line, kNoseColor);
    drawArrowHead(canvas, tip, aids.nose, 8, 3.5, kNoseColor, true);
    holdLine(placer, from, tip, 3);
}

// Ahead of the craft a ring with a dot (the way it moves), behind it a ring with a cross.
void drawMotion(Canvas& canvas, const NavAids& aids, ViewPoint craft, const CraftReach& reach,
                LabelPlacer& placer) {
    if (!aids.hasMotion)
        return;
    const ViewPoint ahead{craft.x + aids.motion.x * reach.motion,
                          craft.y + aids.motion.y * reach.motion};
    const ViewPoint behind{craft.x - aids.motion.x * reach.motion,
                           craft.y - aids.motion.y * reach.motion};
    drawRing(canvas, ahead, 5, kMotionColor);
    Path dot;
    dot.addOval(toRect(ahead.x - 1.5, ahead.y - 1.5, 3, 3));
    canvas.fillPath(dot, kMotionColor);
    drawRing(canvas, behind, 5, kMotionColor);
    drawCross(canvas, behind, 3.5, kMotionColor);
    placer.hold(boxAround(ahead, 6));
    placer.hold(boxAround(behind, 6));
}

// A small sun a little beyond the nose's reach, the way the Sun lies from the craft, while the
// Sun itself is out of sight.
void drawSun(Canvas& canvas, const DrawView& view, const NavAids& aids, ViewPoint craft,
             const CraftReach& reach, LabelPlacer& placer, std::vector<Label>& labels) {
    const ViewPoint sun = place(view, aids.sun);
    if (isInView(view, sun) || distance(sun, craft) < 1)
        return;
    const double a = angleTo(craft, sun);
    // Anywhere along the line from the craft says the same: further out where the nearest place
    // is taken by a read-out or another mark.
    ViewPoint mark = along(craft, a, reach.sun);
    for (double out = 12; out <= 120 && !placer.isFree(boxAround(mark, 8)); out += 12) {
        const ViewPoint further = along(craft, a, reach.sun + out);
        if (!isInView(view, further))
            break;
        if (placer.isFree(boxAround(further, 8)))
            mark = further;
    }
    Path disc;
    disc.addOval(toRect(mark.x - 3, mark.y - 3, 6, 6));
    canvas.fillPath(disc, kSunColor);
    Path rays;
    for (int i = 0; i < 8; ++i) {
        const ViewPoint from = along(mark, i * kPi / 4, 4.5);
        const ViewPoint to = along(mark, i * kPi / 4, 7);
        rays.moveTo(toPoint(from.x, from.y));
        rays.lineTo(toPoint(to.x, to.y));
    }
    canvas.strokePath(rays, kSunColor);
    placer.hold(boxAround(mark, 8));
    labels.push_back({"Sun", mark, 8});
}

// The level's target or goal body, out of sight: an arrow towards it, with its distance.
void drawTargetArrow(Canvas& canvas, const DrawView& view, const NavAids& aids, LabelPlacer& placer,
                     std::vector<Label>& labels) {
    if (aids.hasTarget)
        drawEdgeArrow(canvas, view, place(view, aids.target), kTargetColor,
                      std::string(aids.targetName) + " " + formatDist(aids.targetGap), placer,
                      labels);
}

// The craft itself, out of sight while the view follows a body: an arrow towards it.
void drawCraftArrow(Canvas& canvas, const DrawView& view, const NavAids& aids, LabelPlacer& placer,
                    std::vector<Label>& labels) {
    drawEdgeArrow(canvas, view, place(view, aids.craft), kNoseColor, "You", placer, labels);
}

// The angle a briefing asks for, as an arc round its centre from the body behind to the one
// ahead, with a head at the ahead end; left out where the bodies stand too close to the centre
// for an arc worth reading.
void drawPhase(Canvas& canvas, const DrawView& view, const NavAids& aids, LabelPlacer& placer,
               std::vector<Label>& labels) {
    const NavPhase& phase = aids.phase;
    if (!phase.isShown)
        return;
    const ViewPoint c = place(view, phase.centre);
    if (!isInView(view, c))
        return;
    const ViewPoint behind = place(view, phase.behind);
    const ViewPoint ahead = place(view, phase.ahead);
    const double far = std::max(distance(c, behind), distance(c, ahead));
    if (far < 40)
        return;
    // Halfway out to the farther body: clear of the craft's own marks near the centre.
    const double r =
        std::clamp(far / 2, 24.0, std::max(24.0, 0.3 * std::min(view.viewWidth, view.viewHeight)));
    const double from = angleTo(c, behind);
    const double to = from + phase.angle;
    drawArc(canvas, c, r, from, phase.angle, kPhaseColor);
    Path ticks;
    for (const double a : {from, to}) {
        const ViewPoint inner = along(c, a, r - 6);
        const ViewPoint outer = along(c, a, r + 6);
        ticks.moveTo(toPoint(inner.x, inner.y));
        ticks.lineTo(toPoint(outer.x, outer.y));
    }
    canvas.strokePath(ticks, kPhaseColor);
    drawArrowHead(canvas, along(c, to, r), to + kPi / 2, 7, 3.5, kPhaseColor, true);
    const ViewPoint middle = along(c, from + phase.angle / 2, r);
    placer.hold(boxAround(middle, 2));
    const long degrees = std::lround(phase.angle * 180 / kPi);
    labels.push_back({std::to_string(degrees) + "\u00b0", middle, 3});
}

} // namespace apsis::nav
