#include "presentation/nav_aids.h"

#include "physics/position.h"
#include "presentation/drawing.h"
#include "presentation/format.h"
#include "presentation/nav_parts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace apsis {
namespace {

using namespace nav;

// What the marks on the path and round the craft need to share.
struct Scene {
    Canvas& canvas;
    const DrawView& view;
    const NavAids& aids;
    ViewPoint craft;
    CraftReach reach;
    bool isCraftInView;
    LabelPlacer placer;
    std::vector<Label> labels;
    std::vector<std::pair<std::string, Color>> notes; // their lines, top first, and colours
    double notesTop = 0;                              // where the top line stands

    // A mark this close to the craft would sit on it: the notes say what it would have shown.
    bool isOnCraft(ViewPoint p) const { return isCraftInView && distance(p, craft) < reach.clear; }
    // Whether a mark at p is drawn at all: in the view and off the craft.
    bool isShown(ViewPoint p) const { return isInView(view, p) && !isOnCraft(p); }
};

std::string speedText(double speed) {
    return formatVelDiff(Position(0, 0, speed, 0), Position());
}

// The aids' own lines, under the display's left column and in its rhythm of 12 points. Each line
// is in the colour of its mark, so the text is the marks' legend. Their place is found first and
// held clear of the labels; they are drawn last, over the marks.
void placeNotes(Scene& s) {
    const NavAids& aids = s.aids;
    std::vector<std::pair<std::string, Color>>& lines = s.notes;
    const Color plain = kAidStyle.color;
    if (aids.hasOrbit) {
        const char* body = *aids.orbitBody != '\0' ? aids.orbitBody : s.view.viewTarget.name;
        const std::string around =
            *aids.orbitBody != '\0' ? std::string(" (") + aids.orbitBody + ")" : "";
        if (aids.isEscaping)
            lines.emplace_back("High" + around + ": escape", kHighColor);
        else
            lines.emplace_back("High" + around + ": " + formatDist(aids.high.value) +
                                   (aids.isCircular ? "" : inHowLong(aids.high.time)),
                               kHighColor);
        // A low point under the ground is never reached: the craft hits the ground first. Climbing
        // away on an escape path, the craft has no low point ahead to name.
        if (aids.low.isShown && aids.low.value < 0)
            lines.emplace_back("Low" + around + ": below the surface of " +
                                   inSentence(body != nullptr ? body : "the body"),
                               kLowColor);
        else if (aids.low.isShown)
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
    const NavApproach& approach = aids.approach;
    if (approach.isShown)
        lines.emplace_back(std::string("Closest to ") + approach.name + ": " +
                               (approach.isBeyondPath
                                    ? std::string("beyond the path")
                                    : gapText(approach) + inHowLong(approach.time) + " at " +
                                          speedText(approach.speed)),
                           kTargetColor);
    if (aids.impact.isShown)
        lines.emplace_back(std::string("Impact on ") + aids.impact.name +
                               inHowLong(aids.impact.time),
                           kImpactColor);
    if (aids.isCutShort && !aids.path.empty())
        lines.emplace_back("Path cut short: it ends in " + formatTime(aids.pathTime), kPathColor);
    if (aids.phase.isShown) {
        const NavPhase& p = aids.phase;
        lines.emplace_back(std::string(p.aheadName) + " ahead of " + inSentence(p.behindName) +
                               " round " + inSentence(p.centreName) + ": " +
                               std::to_string(std::lround(p.angle * 180 / kPi)) + "\u00b0",
                           kPhaseColor);
    }
    if (lines.empty())
        return;
    double widest = 0;
    for (const auto& line : lines)
        widest = std::max(widest,
                          static_cast<double>(s.canvas.measureText(line.first, kAidStyle).width));
    const double below = 12.0 * static_cast<double>(lines.size() - 1);
    // Under the left column; over the scale bar instead while the craft and its marks are there.
    double top = s.view.viewHeight - 94;
    const Box aroundCraft = boxAround(s.craft, s.reach.nose + 30);
    if (s.isCraftInView && aroundCraft.overlaps({0, top - below - 2, 12 + widest, top + 14}) &&
        !aroundCraft.overlaps({0, 58, 12 + widest, 74 + below}))
        top = 62 + below;
    s.notesTop = top;
    const double high = s.canvas.measureText(lines.front().first, kAidStyle).height;
    s.placer.hold({0, top - below - 2, 12 + widest, top + std::max(14.0, high)}, true);
}

// Each line on its own plate.
void drawNotes(Scene& s) {
    for (std::size_t i = 0; i < s.notes.size(); ++i) {
        const double y = s.notesTop - 12.0 * static_cast<double>(i);
        TextStyle style = kAidStyle;
        style.color = s.notes[i].second;
        const Size size = s.canvas.measureText(s.notes[i].first, style);
        drawLinePlate(s.canvas, 10, y, size, i == 0);
        s.canvas.drawText(s.notes[i].first, toPoint(10, y), style);
    }
}

// A mark on the path, named.
void drawNamedMark(Scene& s, const NavMark& mark, const Color& color, const char* name,
                   bool isCross) {
    const ViewPoint p = place(s.view, mark.at);
    if (!s.isShown(p))
        return;
    if (isCross)
        drawCross(s.canvas, p, 5, color);
    else
        drawDiamond(s.canvas, p, 5, color);
    s.placer.hold(boxAround(p, 5));
    s.labels.push_back({name, p, 5});
}

// The closest approach: a cross on the path, a dashed ring where the target will be then and a
// line between them. Nothing of it is drawn when the closest lies beyond the path: its end is
// marked instead.
void drawApproach(Scene& s) {
    const NavApproach& approach = s.aids.approach;
    if (!approach.isShown || approach.isBeyondPath)
        return;
    const ViewPoint p = place(s.view, approach.at);
    const ViewPoint ghost = place(s.view, approach.bodyThen);
    const bool isCrossShown = s.isShown(p);
    // A ghost on the target itself adds nothing: the approach is now.
    const bool isGhostShown =
        !s.isOnCraft(ghost) &&
        !(s.aids.hasTarget && distance(ghost, place(s.view, s.aids.target)) < 6);
    if (isCrossShown && isGhostShown && distance(p, ghost) > 20) {
        const double a = std::atan2(ghost.y - p.y, ghost.x - p.x);
        drawLine(s.canvas, s.view, along(p, a, 6), along(ghost, a + kPi, 11), kGhostColor);
    }
    if (isGhostShown && isInView(s.view, ghost)) {
        drawDashedRing(s.canvas, ghost, 10, kGhostColor);
        s.placer.hold(boxAround(ghost, 10));
        s.labels.push_back({std::string(approach.name) + " then", ghost, 10});
    }
    if (isCrossShown) {
        drawCross(s.canvas, p, 4, kTargetColor);
        s.placer.hold(boxAround(p, 5));
        s.labels.push_back({"Closest", p, 5});
    }
}

// A bar across the end of a path cut short.
void drawPathEnd(Scene& s) {
    const std::vector<Offset>& path = s.aids.path;
    if (!s.aids.isCutShort || path.size() < 2)
        return;
    const ViewPoint end = place(s.view, path.back());
    if (!s.isShown(end))
        return;
    ViewPoint before = end;
    for (auto i = path.size() - 1; i-- > 0 && distance(before, end) < 1;)
        before = place(s.view, path[i]);
    const double across = std::atan2(end.y - before.y, end.x - before.x) + kPi / 2;
    drawLine(s.canvas, s.view, along(end, across, 7), along(end, across, -7), kPathColor);
    s.placer.hold(boxAround(end, 6));
    s.labels.push_back({"path ends", end, 6});
}

} // namespace

namespace nav {

std::string inHowLong(double time) {
    return time >= 0 ? " in " + formatTime(time) : "";
}

std::string gapText(const NavApproach& approach) {
    return approach.value < 0 ? std::string("contact") : formatDist(approach.value);
}

std::string inSentence(const char* name) {
    std::string s = name;
    if (s == "You")
        return "you";
    if (s.rfind("The ", 0) == 0)
        s[0] = 't';
    return s;
}

} // namespace nav

void drawNavAids(const DrawView& view, const NavAids& aids, const AssistAids* assists) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    const ViewPoint craft = place(view, aids.craft);
    Scene s{*canvas,
            view,
            aids,
            craft,
            craftReach(view),
            isInView(view, craft),
            LabelPlacer(*canvas, view, true),
            {},
            {},
            0};
    s.placer.holdDisplay();
    if (s.isCraftInView)
        s.placer.hold(boxAround(craft, s.reach.clear), true);
    placeNotes(s);
    if (aids.hasZone) {
        const ViewPoint c = place(view, aids.zoneCentre);
        drawCircle(*canvas, view, c, view.lengthToView(aids.zoneInner), kZoneColor);
        drawCircle(*canvas, view, c, view.lengthToView(aids.zoneOuter), kZoneColor);
    }
    drawPath(*canvas, view, aids.path);
    drawPhase(*canvas, view, aids, s.placer, s.labels);
    if (aids.hasTarget) {
        const ViewPoint target = place(view, aids.target);
        if (!s.isOnCraft(target)) {
            drawRing(*canvas, target, 10, kTargetColor);
            s.placer.hold(boxAround(target, 10));
        }
    }
    drawApproach(s);
    if (aids.impact.isShown)
        drawNamedMark(s, aids.impact, kImpactColor, "Impact", true);
    drawPathEnd(s);
    // The low point of a path that meets the ground lies inside the body: the impact stands for it.
    if (aids.hasOrbit && !aids.isCircular && aids.low.isShown && aids.low.value >= 0)
        drawNamedMark(s, aids.low, kLowColor, "Low", false);
    if (aids.hasOrbit && !aids.isCircular && !aids.isEscaping)
        drawNamedMark(s, aids.high, kHighColor, "High", false);
    if (assists != nullptr)
        drawPlanParts(*canvas, view, *assists, s.placer, s.labels);
    drawTargetArrow(*canvas, view, aids, s.placer, s.labels);
    if (!s.isCraftInView)
        drawCraftArrow(*canvas, view, aids, s.placer, s.labels);
    if (s.isCraftInView) {
        drawMotion(*canvas, aids, craft, s.reach, s.placer);
        drawSun(*canvas, view, aids, craft, s.reach, s.placer, s.labels);
        drawHeading(*canvas, aids, craft, s.reach, s.placer);
    }
    drawNotes(s);
    for (const Label& label : s.labels)
        s.placer.put(label);
}

} // namespace apsis
