#include "host/damage_canvas.h"

#include "platform/qt_canvas.h"
#include "platform/qt_convert.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <unordered_map>

namespace apsis {
namespace {

// A fingerprint of a primitive and its arguments (FNV-1a over their bytes).
class Signature {
  public:
    explicit Signature(int kind) { add(kind); }
    template <typename T>
    Signature& add(const T& value) {
        unsigned char bytes[sizeof(T)];
        std::memcpy(bytes, &value, sizeof(T));
        for (unsigned char byte : bytes)
            mix(byte);
        return *this;
    }
    Signature& add(const std::string& text) {
        for (char c : text)
            mix(static_cast<unsigned char>(c));
        return add(text.size());
    }
    Signature& add(const Rect& r) { return add(r.x).add(r.y).add(r.width).add(r.height); }
    Signature& add(const Color& c) { return add(c.r).add(c.g).add(c.b).add(c.a); }
    Signature& add(const TextStyle& s) {
        add(static_cast<int>(s.family)).add(s.size).add(s.color).add(s.background.has_value());
        return s.background ? add(*s.background) : *this;
    }
    Signature& add(const Path& path) {
        for (const Path::Element& e : path.elements)
            add(static_cast<int>(e.kind)).add(e.rect);
        return add(path.elements.size());
    }
    std::uint64_t value() const { return hash_; }

  private:
    void mix(unsigned char byte) {
        hash_ ^= byte;
        hash_ *= 1099511628211ull;
    }
    std::uint64_t hash_ = 14695981039346656037ull;
};

enum Kind { kFillRect, kStroke, kFill, kPicture, kText, kTextInRect, kMagnified };

} // namespace

DamageCanvas::DamageCanvas(const QPaintDevice* device, Size size) : size_(size), faces_(device) {
    if (device != nullptr)
        device_.scale(device->devicePixelRatioF(), device->devicePixelRatioF());
}

bool DamageCanvas::add(std::uint64_t signature, const Rect& r, double margin) {
    const double x = r.x;
    const double y = r.y;
    const double w = r.width;
    const double h = r.height;
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(w) || !std::isfinite(h))
        return false;
    // A rectangle of negative size covers the same ground as its mirror image.
    const double left = std::min(x, x + w) - margin;
    const double right = std::max(x, x + w) + margin;
    const double bottom = std::min(y, y + h) - margin;
    const double top = std::max(y, y + h) + margin;
    const double width = size_.width;
    const double height = size_.height;
    // Within the view, in whole pixels rounded outwards; y turns downwards.
    const double l = std::clamp(std::floor(left), 0.0, width);
    const double r2 = std::clamp(std::ceil(right), 0.0, width);
    const double t = std::clamp(std::floor(height - top), 0.0, height);
    const double b = std::clamp(std::ceil(height - bottom), 0.0, height);
    if (r2 <= l || b <= t)
        return false;
    marks_.push_back({signature,
                      QRect(static_cast<int>(l), static_cast<int>(t), static_cast<int>(r2 - l),
                            static_cast<int>(b - t)),
                      nullptr});
    return true;
}

bool DamageCanvas::boundsOf(const Path& path, Rect& bounds) {
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
    bounds = {left, bottom, right - left, top - bottom};
    return left <= right && bottom <= top;
}

void DamageCanvas::fillRect(const Rect& r, const Color& c) {
    add(Signature(kFillRect).add(r).add(c).value(), r, kEdgeReach);
}

void DamageCanvas::strokePath(const Path& path, const Color& c) {
    Rect bounds;
    if (boundsOf(path, bounds))
        add(Signature(kStroke).add(path).add(c).value(), bounds, kStrokeReach);
}

void DamageCanvas::fillPath(const Path& path, const Color& c) {
    Rect bounds;
    if (boundsOf(path, bounds))
        add(Signature(kFill).add(path).add(c).value(), bounds, kEdgeReach);
}

void DamageCanvas::drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                               double opacity) {
    if (picture == nullptr)
        return;
    if (auto sampling = QtCanvas::magnifiedSampling(picture, source, dest, size_, device_)) {
        // Samples in device pixels compare only through the same device transform.
        if (add(Signature(kMagnified)
                    .add(reinterpret_cast<std::uintptr_t>(picture))
                    .add(opacity)
                    .add(device_.m11())
                    .add(device_.m22())
                    .add(device_.dx())
                    .add(device_.dy())
                    .value(),
                dest, kEdgeReach))
            marks_.back().sampling =
                std::make_shared<const MagnifiedSampling>(std::move(*sampling));
        return;
    }
    // A picture does not change once loaded, so the same one drawn alike looks alike.
    add(Signature(kPicture)
            .add(reinterpret_cast<std::uintptr_t>(picture))
            .add(source)
            .add(dest)
            .add(opacity)
            .value(),
        dest, kEdgeReach);
}

Size DamageCanvas::measureText(const std::string& text, const TextStyle& style) {
    return faces_.measure(text, style);
}

void DamageCanvas::drawText(const std::string& text, Point at, const TextStyle& style) {
    const Size box = measureText(text, style);
    add(Signature(kText).add(text).add(at.x).add(at.y).add(style).value(),
        {at.x, at.y, box.width, box.height}, kTextReach);
}

void DamageCanvas::drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) {
    // Lines hang from the top of the rectangle and may run past its right edge.
    const Size box = measureText(text, style);
    add(Signature(kTextInRect).add(text).add(r).add(style).value(),
        {r.x, r.y, std::max(r.width, box.width), r.height}, kTextReach);
}

QRegion DamageCanvas::changedSince(const std::vector<Mark>& before) const {
    std::vector<QRect> changed;
    // A magnified picture drawn again is matched with its mark before, and changes only where
    // its samples do.
    std::vector<bool> matchedBefore(before.size());
    std::vector<bool> matchedNow(marks_.size());
    std::vector<std::size_t> sampledBefore;
    for (std::size_t j = 0; j < before.size(); ++j) {
        if (before[j].sampling)
            sampledBefore.push_back(j);
    }
    for (std::size_t i = 0; i < marks_.size() && !sampledBefore.empty(); ++i) {
        if (!marks_[i].sampling)
            continue;
        for (const std::size_t j : sampledBefore) {
            if (!matchedBefore[j] && before[j].signature == marks_[i].signature) {
                matchedBefore[j] = true;
                matchedNow[i] = true;
                addChanged(before[j], marks_[i], changed);
                break;
            }
        }
    }
    // Count each other primitive of the frame before, then strike off those this frame draws
    // again; what is left over on either side is where the picture changes.
    std::unordered_map<std::uint64_t, int> counts;
    for (std::size_t j = 0; j < before.size(); ++j) {
        if (!matchedBefore[j])
            ++counts[before[j].signature];
    }
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        if (matchedNow[i])
            continue;
        auto found = counts.find(marks_[i].signature);
        if (found != counts.end() && found->second > 0)
            --found->second;
        else
            changed.push_back(marks_[i].bounds);
    }
    for (std::size_t j = 0; j < before.size(); ++j) {
        if (matchedBefore[j])
            continue;
        auto found = counts.find(before[j].signature);
        if (found->second > 0) {
            --found->second;
            changed.push_back(before[j].bounds);
        }
    }
    joinNeighbours(changed);
    QRegion region;
    for (const QRect& r : changed)
        region += r;
    return region;
}

void DamageCanvas::addChanged(const Mark& before, const Mark& now,
                              std::vector<QRect>& changed) const {
    const QTransform toView = device_.inverted();
    for (const QRect& pixels : changedPixels(*before.sampling, *now.sampling))
        changed.push_back(toView.mapRect(QRectF(pixels)).toAlignedRect());
}

void DamageCanvas::joinNeighbours(std::vector<QRect>& rects) {
    if (rects.size() > kMostJoined)
        return;
    const auto area = [](const QRect& r) { return qint64{r.width()} * r.height(); };
    for (bool joined = true; joined;) {
        joined = false;
        for (std::size_t i = 0; i < rects.size(); ++i) {
            for (std::size_t j = i + 1; j < rects.size();) {
                const QRect both = rects[i].united(rects[j]);
                if (area(both) <= area(rects[i]) + area(rects[j]) + kAreaOfARequest) {
                    rects[i] = both;
                    rects.erase(rects.begin() + static_cast<std::ptrdiff_t>(j));
                    joined = true;
                } else {
                    ++j;
                }
            }
        }
    }
}

} // namespace apsis
