#include "physics/numeric.h"
#include "presentation/drawing.h"
#include "presentation/nav_parts.h"

#include <cmath>
#include <string>

namespace apsis::nav {
namespace {

const TextStyle kReadOutStyle{FontFamily::Courier, 12.0f, colors::green};

// How far out a label may move from its mark on a leader line, points, nearest first.
constexpr double kLeaderReaches[] = {26, 40, 60, 88, 124, 170, 230};
// A leader line is checked for what it crosses at points this far apart.
constexpr double kLeaderStep = 3.0;

} // namespace

LabelPlacer::LabelPlacer(Canvas& canvas, const DrawView& view, bool isBacked)
    : canvas_(canvas), view_(view), isBacked_(isBacked) {}

// Where the display writes, as the flight frame draws it: texts 12 points high every 12 points,
// bottoms 22 to 70 points from the top on the left and to 94 on the right, so the boxes reach
// two points below the lowest line; the widest line on either side is about 44 and 32 letters.
void LabelPlacer::holdDisplay() {
    const double w = view_.viewWidth;
    const double h = view_.viewHeight;
    const auto widthOf = [&](std::size_t letters) {
        return static_cast<double>(
            canvas_.measureText(std::string(letters, '0'), kReadOutStyle).width);
    };
    hold({0, h - 72, 10 + widthOf(44), h}, true);     // the clock and the motion
    hold({w - 10 - widthOf(32), h - 96, w, h}, true); // the engine, the throttle and the fuel
    hold({w - 24, 28, w, h - 104}, true);             // the fuel gauge
    hold({0, 0, w, 36}, true);                        // the scale bar and its width
    hold({16, 38, 24 + widthOf(30), 56}, true);       // "Partial Objective Accomplished"
    for (const Rect& r : view_.textsDrawn) {
        const double x = r.x;
        const double y = r.y;
        hold({x - 1, y - 1, x + static_cast<double>(r.width) + 1,
              y + static_cast<double>(r.height) + 1},
             true);
    }
}

bool LabelPlacer::isFree(const Box& box) const {
    for (const Held& held : held_) {
        if (held.box.overlaps(box))
            return false;
    }
    return true;
}

// A box wholly in the view and on nothing held, and its leader line (from `from` to `to`, none
// when they are the same point) across nothing held either but what holds the mark itself: a
// mark under a read-out sends its label out from under it.
bool LabelPlacer::isClear(const Box& box, ViewPoint mark, ViewPoint from, ViewPoint to,
                          bool mayCrossMarks) const {
    if (box.left < 2 || box.bottom < 2 || box.right > view_.viewWidth - 2 ||
        box.top > view_.viewHeight - 2 || !isFree(box))
        return false;
    const double length = distance(from, to);
    for (double s = 0; s < length; s += kLeaderStep) {
        const ViewPoint q{from.x + (to.x - from.x) * s / length,
                          from.y + (to.y - from.y) * s / length};
        for (const Held& held : held_) {
            if (held.box.contains(q) && !held.box.contains(mark) &&
                (held.isSolid || !mayCrossMarks))
                return false;
        }
    }
    return true;
}

bool LabelPlacer::put(const Label& label) {
    const Size size = canvas_.measureText(label.text, kMarkStyle);
    // The box is the plate's where there is one: the text stands in its middle.
    const double pad = isBacked_ ? kPlatePad : 0;
    const double tw = static_cast<double>(size.width) + 2 * pad;
    const double th = size.height;
    const ViewPoint p = label.at;
    const double r = label.reach;
    const auto draw = [&](const Box& box) {
        if (isBacked_)
            canvas_.fillRect(toRect(box.left, box.bottom, tw, th), kPlateColor);
        canvas_.drawText(label.text, toPoint(box.left + pad, box.bottom), kMarkStyle);
        held_.push_back({box, true});
        return true;
    };
    // Beside the mark: right, left, the four corners, above, below.
    const double nearBy[][2] = {
        {p.x + r + 3, p.y - th / 2}, {p.x - r - 3 - tw, p.y - th / 2}, {p.x + r, p.y + r},
        {p.x + r, p.y - r - th},     {p.x - r - tw, p.y + r},          {p.x - r - tw, p.y - r - th},
        {p.x - tw / 2, p.y + r + 2}, {p.x - tw / 2, p.y - r - 2 - th},
    };
    for (const auto& [x, y] : nearBy) {
        const Box box{x, y, x + tw, y + th};
        if (isClear(box, p, p, p, false))
            return draw(box);
    }
    // Further out, joined to the mark by a leader line that starts clear of the mark itself and
    // crosses no other mark where it can.
    for (const bool mayCrossMarks : {false, true}) {
        for (const double reach : kLeaderReaches) {
            for (int k = 0; k < 32; ++k) {
                // Right, left, down, up first, then the directions between them, then those
                // between all of these.
                static constexpr int kOrder[16] = {0,  8, 12, 4, 14, 2, 10, 6,
                                                   15, 1, 9,  7, 13, 3, 11, 5};
                const double a = (kOrder[k % 16] + (k < 16 ? 0 : 0.5)) * kPi / 8;
                const double cx = std::cos(a);
                const double cy = std::sin(a);
                const ViewPoint end = along(p, a, r + reach);
                const double x = cx > 0.38 ? end.x : cx < -0.38 ? end.x - tw : end.x - tw / 2;
                const double y = cy > 0.38 ? end.y : cy < -0.38 ? end.y - th : end.y - th / 2;
                const Box box{x, y, x + tw, y + th};
                const ViewPoint start = along(p, a, 1.5 * r + 2);
                if (!isClear(box, p, start, end, mayCrossMarks))
                    continue;
                Path leader;
                leader.moveTo(toPoint(start.x, start.y));
                leader.lineTo(toPoint(end.x, end.y));
                canvas_.strokePath(leader, kLeaderColor);
                return draw(box);
            }
        }
    }
    return false;
}

} // namespace apsis::nav
