#include "physics/position.h"
#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"
#include "presentation/format.h"
#include "presentation/nav_parts.h"
#include "world/game.h"

#include <cmath>
#include <string>

namespace apsis {
namespace {

const TextStyle kDisplayStyle{FontFamily::Courier, 12.0f, colors::green};
const TextStyle kScaleStyle{FontFamily::Courier, 12.0f, colors::lightGray};
const Color kZoomGrey{0.25, 0.25, 0.25, 1.0};

// The outline that grows out of the followed body while zooming in and shrinks into it while
// zooming out. It fades in just after it appears and out before it wraps round.
void drawZoomIndicator(Canvas& canvas, const DrawView& view) {
    const double z = view.zoomRect;
    const double w = view.viewWidth;
    const double h = view.viewHeight;
    double opacity = 1.0;
    if (z < 0.2)
        opacity = (z - 0.1) / 0.1;
    else if (z > 0.7)
        opacity = 1 + (z - 0.7) / (-0.3);
    // Below 0 counts as nothing at all: the indicator is off.
    if (!(opacity > 0.0))
        return;
    if (opacity > 1.0)
        opacity = 1.0;
    Path outline;
    outline.addRect(
        toRect((1 - z) * w / 2 + w * (view.viewTarget.pos.x - view.viewCenter.x) / view.viewScale,
               (1 - z) * h / 2 + h * (view.viewTarget.pos.y - view.viewCenter.y) / view.viewScaleH,
               w * z, h * z));
    Color grey = kZoomGrey;
    grey.a = opacity;
    canvas.strokePath(outline, grey);
}

// A read-out, on a plate of its own while the aids are on, so that it stays legible over a bright
// planet as theirs do.
void drawReadOut(Canvas& canvas, const DrawView& view, const std::string& text, double x,
                 double y) {
    if (view.isPlatingReadOuts)
        nav::drawLinePlate(canvas, x, y, canvas.measureText(text, kDisplayStyle), false);
    canvas.drawText(text, toPoint(x, y), kDisplayStyle);
}

// A read-out whose right end stands 10 points from the right edge.
void drawRightAligned(Canvas& canvas, const DrawView& view, const std::string& text, double y) {
    const Size size = canvas.measureText(text, kDisplayStyle);
    drawReadOut(canvas, view, text, view.viewWidth - static_cast<double>(size.width) - 10, y);
}

// A double-headed arrow across the bottom, labelled with the width of the world in view.
void drawScaleBar(Canvas& canvas, const DrawView& view) {
    const double w = view.viewWidth;
    Path bar;
    bar.moveTo({50, 20});
    bar.lineTo({40, 15});
    bar.moveTo({50, 10});
    bar.lineTo({40, 15});
    bar.lineTo(toPoint(w - 40, 15));
    bar.lineTo(toPoint(w - 50, 10));
    bar.moveTo(toPoint(w - 40, 15));
    bar.lineTo(toPoint(w - 50, 20));
    canvas.strokePath(bar, colors::lightGray);

    const std::string label = formatDist(view.viewScale);
    const Size size = canvas.measureText(label, kScaleStyle);
    canvas.drawText(label, toPoint((w - static_cast<double>(size.width)) / 2, 20), kScaleStyle);
}

// A blue frame one point wide around a black trough, filled green in proportion.
void fillGauge(Canvas& canvas, double x, double y, double width, double height, double fillWidth,
               double fillHeight) {
    canvas.fillRect(toRect(x, y, width, height), colors::blue);
    canvas.fillRect(toRect(x + 1, y + 1, width - 2, height - 2), colors::black);
    // A tank overdrawn by the last burn shows a sliver hanging below the trough for a moment,
    // beside the out-of-fuel banner, until the engine's next sub-step clears the remainder.
    canvas.fillRect(toRect(x + 1, y + 1, fillWidth, fillHeight), colors::green);
}

} // namespace

void DrawView::drawGame(Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    Player& p = game.player;
    const double w = viewWidth;
    const double h = viewHeight;

    textsDrawn.clear();
    craftRadius = lengthToView(p.size) / 2;
    // Bodies; the later ones cover the earlier, so the satellite and the station lie over the ship.
    drawStel(game.sun, 0);
    drawStel(game.venus, 0);
    drawStel(game.earth, 0);
    drawStel(game.moon, 1);
    drawStel(game.mars, 0);
    drawStel(game.jupiter, 0);
    if (game.asteroid.isActive)
        drawStel(game.asteroid, 0);
    drawStel(p, p.isAccelerating && game.running ? 4 : 3);
    if (game.satellite.isActive)
        drawStel(game.satellite, 2);
    if (game.station.isActive)
        drawStel(game.station, 2);

    drawZoomIndicator(*canvas, *this);

    // Left column: the clock, then the motion relative to the followed body.
    const std::string targetName = viewTarget.name != nullptr ? viewTarget.name : "";
    std::string elapsed = "Elapsed Time: " + formatTime(game.elapsedTime);
    if (game.timeLimit != 0)
        elapsed += " / " + formatFixedTime(game.timeLimit);
    drawReadOut(*canvas, *this, elapsed, 10, h - 22);
    drawReadOut(*canvas, *this, "Time Factor: " + formatTime(30 * game.timeStep) + " to 1s", 10,
                h - 34);
    drawReadOut(*canvas, *this,
                "Speed Relative to " + targetName + ": " + formatVelDiff(p.pos, viewTarget.pos), 10,
                h - 58);
    // The gap between the two collision spheres: negative when they overlap.
    const double gap = std::sqrt(sqDist(p.pos, viewTarget.pos)) - viewTarget.cRadius - p.cRadius;
    drawReadOut(*canvas, *this, "Distance to " + targetName + ": " + formatDist(gap), 10, h - 70);

    drawScaleBar(*canvas, *this);

    // Right column: the engine.
    drawRightAligned(*canvas, *this, "Max Acceleration: " + formatAccel(p.acceleration), h - 22);
    drawRightAligned(*canvas, *this, "Actual Accel: " + formatAccel(p.throttle * p.acceleration),
                     h - 34);
    drawRightAligned(*canvas, *this, "Throttle: " + formatPercent(p.throttle), h - 58);
    fillGauge(*canvas, w - 160, h - 70, 150, 8, 148 * p.throttle, 6);

    // Fuel is a budget of velocity change: at this throttle it lasts this long.
    drawRightAligned(*canvas, *this, "Fuel: " + formatTime(p.fuel / p.acceleration / p.throttle),
                     h - 94);
    fillGauge(*canvas, w - 20, 30, 8, h - 136, 6, (h - 138) * p.fuel / p.maxFuel);
}

} // namespace apsis
