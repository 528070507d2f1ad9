#include "presentation/assists.h"

#include "physics/position.h"
#include "presentation/drawing.h"
#include "presentation/format.h"
#include "presentation/nav_parts.h"

#include <cmath>
#include <string>
#include <vector>

namespace apsis {
namespace {

using namespace nav;

const TextStyle kAssistStyle{FontFamily::Courier, 12.0f, kPlanColor};

std::string speedText(double speed) {
    return formatVelDiff(Position(0, 0, speed, 0), Position());
}

// A planned high or low point: under the ground it is never reached, the craft hits the ground
// first.
std::string heightText(const NavMark& mark, const char* body) {
    return mark.value < 0 ? "below the surface of " + inSentence(body) : formatDist(mark.value);
}

// Which way a planned burn pushes, in words: a velocity change along the motion below zero is one
// against it.
std::string directionText(const AssistAids& a) {
    std::string text = (a.along < 0 ? "Against the Motion: " : "Along the Motion: ") +
                       speedText(std::abs(a.along));
    if (a.across != 0)
        text += (a.across < 0 ? ", Radial In: " : ", Radial Out: ") + speedText(std::abs(a.across));
    return text;
}

// The assists' lines, under the display's right column and in its rhythm of 12 points, clear of
// the fuel gauge, each on its plate. They are noted as texts drawn, so the aids' labels keep off
// them.
void drawReadOuts(DrawView& view, Canvas& canvas, const AssistAids& a) {
    std::vector<std::string> lines;
    if (a.hold != nullptr)
        lines.push_back(std::string("Hold: ") + a.hold);
    if (a.hasPlan) {
        if (a.isBurning) {
            lines.push_back("Burn: " + speedText(a.remaining) + " to go");
        } else {
            lines.push_back("Planned Burn: " + speedText(a.remaining) + " for " +
                            formatTime(a.duration));
            lines.push_back(directionText(a));
            lines.push_back("Burn Starts In: " + formatTime(a.timeToStart));
        }
        lines.push_back("Fuel After Burn: " + formatTime(a.fuelAfter));
        const char* body = *a.orbitBody != '\0' ? a.orbitBody : view.viewTarget.name;
        if (body == nullptr)
            body = "the body";
        if (a.hasOrbit)
            lines.push_back("Planned High: " +
                            (a.isEscaping ? std::string("escape") : heightText(a.high, body)) +
                            (a.low.isShown ? " Low: " + heightText(a.low, body) : ""));
        const NavApproach& approach = a.approach;
        if (approach.isShown)
            lines.push_back(std::string("Planned Closest to ") + approach.name + ": " +
                            (approach.isBeyondPath ? std::string("beyond the path")
                                                   : gapText(approach) + inHowLong(approach.time) +
                                                         " at " + speedText(approach.speed)));
        if (a.impact.isShown)
            lines.push_back(std::string("Planned Impact on ") + a.impact.name);
    }
    double y = view.viewHeight - 118;
    for (const std::string& line : lines) {
        const Size size = canvas.measureText(line, kAssistStyle);
        const double x = view.viewWidth - 30 - static_cast<double>(size.width);
        drawLinePlate(canvas, x, y, size, &line == &lines.front());
        canvas.drawText(line, toPoint(x, y), kAssistStyle);
        view.textsDrawn.push_back(toRect(x, y, size.width, size.height));
        y -= 12;
    }
}

void drawPlanMark(Canvas& canvas, const DrawView& view, const NavMark& mark, const char* name,
                  LabelPlacer& placer, std::vector<Label>& labels) {
    const ViewPoint p = place(view, mark.at);
    if (!isInView(view, p))
        return;
    drawDiamond(canvas, p, 5, kPlanColor);
    placer.hold(boxAround(p, 5));
    labels.push_back({name, p, 5});
}

} // namespace

namespace nav {

// The planned path from the burn's start, the burn along it brighter, and the marks of the orbit
// it leaves the craft on.
void drawPlanParts(Canvas& canvas, const DrawView& view, const AssistAids& a, LabelPlacer& placer,
                   std::vector<Label>& labels) {
    if (!a.hasPlan)
        return;
    drawPath(canvas, view, a.path, kPlanColor);
    drawPath(canvas, view, a.burn, kBurnColor);
    if (!a.burn.empty()) {
        const ViewPoint start = place(view, a.burn.front());
        if (isInView(view, start)) {
            drawRing(canvas, start, 6, kBurnColor);
            placer.hold(boxAround(start, 6));
            labels.push_back({"Burn", start, 6});
        }
    }
    if (a.hasOrbit && a.low.isShown && a.low.value >= 0)
        drawPlanMark(canvas, view, a.low, "Planned low", placer, labels);
    if (a.hasOrbit && !a.isEscaping)
        drawPlanMark(canvas, view, a.high, "Planned high", placer, labels);
    if (a.approach.isShown && !a.approach.isBeyondPath) {
        const ViewPoint p = place(view, a.approach.at);
        if (isInView(view, p)) {
            drawCross(canvas, p, 4, kPlanColor);
            placer.hold(boxAround(p, 5));
            labels.push_back({"Planned closest", p, 5});
        }
    }
    if (a.impact.isShown) {
        const ViewPoint p = place(view, a.impact.at);
        if (isInView(view, p)) {
            drawCross(canvas, p, 5, kImpactColor);
            placer.hold(boxAround(p, 5));
            labels.push_back({"Planned impact", p, 5});
        }
    }
}

} // namespace nav

void drawAssists(DrawView& view, const AssistAids& assists, const NavAids* aids) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawReadOuts(view, *canvas, assists);
    if (aids != nullptr) {
        drawNavAids(view, *aids, &assists);
        return;
    }
    LabelPlacer placer(*canvas, view);
    placer.holdDisplay();
    std::vector<Label> labels;
    drawPlanParts(*canvas, view, assists, placer, labels);
    for (const Label& label : labels)
        placer.put(label);
}

} // namespace apsis
