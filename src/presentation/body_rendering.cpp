#include "physics/numeric.h"
#include "physics/stellar.h"
#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace apsis {
namespace {

// A body narrower than this on screen is drawn as a symbol, points.
constexpr double kSymbolLimit = 10.0;
// How far around the view a cut picture still reaches, points, so that smoothing at its cut
// edges stays out of sight.
constexpr double kPictureMargin = 64.0;
// How far from its body a symbol's arrow reaches, points; the symbol itself stays within 10.
constexpr double kArrowReach = 25.0;
// A body's name is a word or two in the 12-point label font: it never reaches further.
constexpr double kLabelReach = 200.0;

constexpr double kThreeQuarterPi = 2.356194490192345;
constexpr double kElevenTwelfthPi = 2.8797932657906435;

const TextStyle kLabelStyle{FontFamily::Label, 12.0f, colors::blue};

// Whether something reaching `reach` points from (x, y) can touch the view.
bool reachesView(const DrawView& view, double x, double y, double reach) {
    return x >= -reach && x <= view.viewWidth + reach && y >= -reach &&
           y <= view.viewHeight + reach;
}

// The point r points from (sx, sy) in direction a, worked out in double before narrowing.
Point polar(double sx, double sy, double r, double a) {
    return toPoint(sx + std::cos(a) * r, sy + std::sin(a) * r);
}

// The nearest float at or below v, and at or above it.
float floatBelow(double v) {
    const auto f = static_cast<float>(v);
    return static_cast<double>(f) > v ? std::nextafter(f, -std::numeric_limits<float>::infinity())
                                      : f;
}
float floatAbove(double v) {
    const auto f = static_cast<float>(v);
    return static_cast<double>(f) < v ? std::nextafter(f, std::numeric_limits<float>::infinity())
                                      : f;
}

// One axis of a cut: the picture spans [start, start + length) in the view and [from, from + span)
// in its source; the part within [low, high] of the view is kept. Each cut end of the source is
// rounded outwards to a float and the view end follows from it, so the kept part maps to the
// source exactly as the whole did. At a zoom so deep that one float step of the source covers
// more than the margin, the view end stays where it was cut and the source end rounds to the
// nearest float instead: an error of a float step, far below one pixel of the picture.
void cutAxis(double& start, double& length, float& from, float& span, double low, double high) {
    const double perPoint = static_cast<double>(span) / length; // source points per view point
    const double origin = from;
    const auto sourceAt = [&](double v) { return origin + (v - start) * perPoint; };
    const auto viewAt = [&](double s) { return start + (s - origin) / perPoint; };

    double keptStart = start;
    float newFrom = from;
    if (start < low) {
        newFrom = std::max(from, floatBelow(sourceAt(low)));
        keptStart = viewAt(newFrom);
        if (keptStart < low - kPictureMargin) {
            newFrom = static_cast<float>(sourceAt(low));
            keptStart = low;
        }
    }
    double keptEnd = start + length;
    float newEnd = static_cast<float>(origin + static_cast<double>(span));
    if (keptEnd > high) {
        newEnd = std::min(newEnd, floatAbove(sourceAt(high)));
        keptEnd = viewAt(newEnd);
        if (keptEnd > high + kPictureMargin) {
            newEnd = static_cast<float>(sourceAt(high));
            keptEnd = high;
        }
    }
    from = newFrom;
    span = newEnd - newFrom;
    start = keptStart;
    length = keptEnd - keptStart;
}

// A picture far larger than the view (a planet seen from a few hundred metres) is cut down to the
// view and a margin before it goes to the canvas: the destination shrinks to the visible part and
// the source in proportion, so the same pixels land in the same places, without asking the canvas
// to scale a picture millions of points wide. A picture within the margin is left whole. Returns
// false when no part of the picture can be seen.
bool cutToView(const DrawView& view, double& x, double& y, double& w, double& h, Rect& source) {
    const double left = -kPictureMargin;
    const double bottom = -kPictureMargin;
    const double right = view.viewWidth + kPictureMargin;
    const double top = view.viewHeight + kPictureMargin;
    if (!(x + w >= left && x <= right && y + h >= bottom && y <= top))
        return false;
    if (!(source.width > 0.0f && source.height > 0.0f))
        return false;
    if (x < left || x + w > right)
        cutAxis(x, w, source.x, source.width, left, right);
    if (y < bottom || y + h > top)
        cutAxis(y, h, source.y, source.height, bottom, top);
    return true;
}

void drawBodyPicture(Canvas& canvas, const DrawView& view, Stellar& body, ViewPoint centre,
                     double k) {
    const Picture* picture = body.img.getImage();
    if (picture == nullptr)
        return;
    double w = static_cast<double>(body.img.getWidth()) * k;
    double h = static_cast<double>(body.img.getHeight()) * k;
    double x = centre.x - w / 2;
    double y = centre.y - h / 2;
    Rect source = body.getImageRect();
    if (!cutToView(view, x, y, w, h, source))
        return;
    canvas.drawPicture(picture, source, toRect(x, y, w, h), 1.0);
}

void drawBodySymbol(Canvas& canvas, DrawView& view, const Stellar& body, int style,
                    ViewPoint centre) {
    const double sx = centre.x;
    const double sy = centre.y;
    const bool shapeReaches = reachesView(view, sx, sy, kArrowReach);

    // The arrow points away from the parent body.
    if (body.mainInfluence != nullptr && shapeReaches) {
        const Position& parent = body.mainInfluence->pos;
        const double theta = std::atan2(body.pos.y - parent.y, body.pos.x - parent.x);
        Path arrow;
        arrow.moveTo(polar(sx, sy, 10, theta));
        arrow.lineTo(polar(sx, sy, 25, theta));
        arrow.lineTo(polar(sx, sy, 20, theta - 0.15));
        arrow.lineTo(polar(sx, sy, 25, theta));
        arrow.lineTo(polar(sx, sy, 20, theta + 0.15));
        canvas.strokePath(arrow, colors::darkGray);
    }

    const Point c = toPoint(sx, sy);
    const bool isDot = style == 0 || style == 1;
    if (isDot && body.name != nullptr && reachesView(view, sx, sy, kLabelReach)) {
        // The Moon's name stands below its dot, clear of its planet's above.
        const float labelY = style == 1 ? c.y - 14.5f : c.y + 2.5f;
        canvas.drawText(body.name, {c.x + 2.5f, labelY}, kLabelStyle);
        const Size size = canvas.measureText(body.name, kLabelStyle);
        view.textsDrawn.push_back({c.x + 2.5f, labelY, size.width, size.height});
    }
    if (!shapeReaches)
        return;

    Path shape;
    const double a = body.pos.angle;
    if (isDot) {
        shape.addOval({c.x - 2.5f, c.y - 2.5f, 5.0f, 5.0f});
    } else if (style == 2) {
        constexpr float kCross[12][2] = {{-4, 1}, {-1, 1}, {-1, 4}, {1, 4},   {1, 1},   {4, 1},
                                         {4, -1}, {1, -1}, {1, -4}, {-1, -4}, {-1, -1}, {-4, -1}};
        shape.moveTo({c.x + kCross[0][0], c.y + kCross[0][1]});
        for (int i = 1; i < 12; ++i)
            shape.lineTo({c.x + kCross[i][0], c.y + kCross[i][1]});
    } else if (style == 4) {
        shape.moveTo(polar(sx, sy, 10, a));
        shape.lineTo(polar(sx, sy, 4, a + kThreeQuarterPi));
        shape.lineTo(polar(sx, sy, 4, a + kElevenTwelfthPi));
        shape.lineTo(polar(sx, sy, 10, a + kPi));
        shape.lineTo(polar(sx, sy, 4, a - kElevenTwelfthPi));
        shape.lineTo(polar(sx, sy, 4, a - kThreeQuarterPi));
    } else {
        shape.moveTo(polar(sx, sy, 10, a));
        shape.lineTo(polar(sx, sy, 4, a + kThreeQuarterPi));
        shape.lineTo(polar(sx, sy, 4, a - kThreeQuarterPi));
    }
    canvas.fillPath(shape, colors::green);
}

} // namespace

void DrawView::drawStel(Stellar& body, int style) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    // k scales the whole sheet so that its width is the body's size at this zoom. A missing
    // picture has width 0: k is infinite, the diameter not a number, and the picture branch
    // draws nothing.
    const double k = (body.size / viewScale * viewWidth) / static_cast<double>(body.img.getWidth());
    const ViewPoint centre = worldToView(body.pos.x, body.pos.y);
    const double diameter = static_cast<double>(body.img.getWidth()) * k;
    if (diameter < kSymbolLimit)
        drawBodySymbol(*canvas, *this, body, style, centre);
    else
        drawBodyPicture(*canvas, *this, body, centre, k);
}

} // namespace apsis
