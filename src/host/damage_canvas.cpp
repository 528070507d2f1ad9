#include "host/damage_canvas.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace apsis {
namespace {

// How far ink may reach beyond the geometry it was drawn from, points: antialiased edges, the
// mitre of a stroke's sharp turn, letters overhanging their measured box.
constexpr double kEdgeReach = 2.0;
constexpr double kStrokeReach = 16.0;
constexpr double kTextReach = 8.0;

} // namespace

void DamageCanvas::add(const Rect& r, double margin) {
    const double x = r.x;
    const double y = r.y;
    const double w = r.width;
    const double h = r.height;
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(w) || !std::isfinite(h))
        return;
    // A rectangle of negative size covers the same ground as its mirror image.
    const double left = std::min(x, x + w) - margin;
    const double right = std::max(x, x + w) + margin;
    const double bottom = std::min(y, y + h) - margin;
    const double top = std::max(y, y + h) + margin;
    const double width = size_.width;
    const double height = size_.height;
    // Within the view, and in whole pixels rounded outwards; y turns downwards.
    const double l = std::clamp(std::floor(left), 0.0, width);
    const double r2 = std::clamp(std::ceil(right), 0.0, width);
    const double t = std::clamp(std::floor(height - top), 0.0, height);
    const double b = std::clamp(std::ceil(height - bottom), 0.0, height);
    if (r2 <= l || b <= t)
        return;
    region_ += QRect(static_cast<int>(l), static_cast<int>(t), static_cast<int>(r2 - l),
                     static_cast<int>(b - t));
}

void DamageCanvas::addPath(const Path& path, double margin) {
    const float inf = std::numeric_limits<float>::infinity();
    float left = inf, bottom = inf, right = -inf, top = -inf;
    for (const Path::Element& e : path.elements) {
        const bool isPoint = e.kind == Path::Kind::MoveTo || e.kind == Path::Kind::LineTo;
        const float w = isPoint ? 0.0f : e.rect.width;
        const float h = isPoint ? 0.0f : e.rect.height;
        left = std::min({left, e.rect.x, e.rect.x + w});
        right = std::max({right, e.rect.x, e.rect.x + w});
        bottom = std::min({bottom, e.rect.y, e.rect.y + h});
        top = std::max({top, e.rect.y, e.rect.y + h});
    }
    if (left <= right && bottom <= top)
        add({left, bottom, right - left, top - bottom}, margin);
}

void DamageCanvas::strokePath(const Path& path, const Color&) {
    addPath(path, kStrokeReach);
}

void DamageCanvas::fillPath(const Path& path, const Color&) {
    addPath(path, kEdgeReach);
}

void DamageCanvas::drawPicture(const Picture* picture, const Rect&, const Rect& dest, double) {
    if (picture != nullptr)
        add(dest, kEdgeReach);
}

Size DamageCanvas::measureText(const std::string& text, const TextStyle& style) {
    const QSizeF box = faces_.face(style.family, style.size).boxOf(linesOf(text));
    return {static_cast<float>(box.width()), static_cast<float>(box.height())};
}

void DamageCanvas::drawText(const std::string& text, Point at, const TextStyle& style) {
    const Size box = measureText(text, style);
    add({at.x, at.y, box.width, box.height}, kTextReach);
}

void DamageCanvas::drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) {
    // Lines hang from the top of the rectangle and may run past its right edge.
    const Size box = measureText(text, style);
    add({r.x, r.y, std::max(r.width, box.width), r.height}, kTextReach);
}

} // namespace apsis
