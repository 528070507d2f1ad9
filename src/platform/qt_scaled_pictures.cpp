#include "platform/qt_scaled_pictures.h"

#include <algorithm>

#include <QPainter>

namespace apsis {
namespace {

// Smaller pictures cost Qt little to scale while drawing; larger ones than a 4K screen are never
// kept, whatever asks for them.
constexpr qint64 kSmallestKept = qint64{64} * 64;    // pixels
constexpr qint64 kLargestKept = qint64{4096} * 4096; // pixels

} // namespace

void ScaledPictures::beginRedraw() {
    ++redraw_;
    std::erase_if(entries_, [this](const Entry& e) { return e.lastRedraw < redraw_ - 2; });
}

QImage ScaledPictures::lookUp(const QImage& image, const QRect& source, QSize size) {
    const qint64 area = static_cast<qint64>(size.width()) * size.height();
    if (area < kSmallestKept || area > kLargestKept)
        return {};
    const qint64 key = image.cacheKey();
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) {
        return e.image == key && e.source == source && e.size == size;
    });
    if (found != entries_.end() && !found->scaled.isNull()) {
        found->lastRedraw = redraw_;
        return found->scaled;
    }
    // Scaled by the same filtered drawing that would draw it on the surface. A picture is drawn
    // this one way whether or not it was drawn before, so a part of the view that is not
    // repainted shows just what repainting it would.
    QImage scaled(size, image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                : QImage::Format_RGB32);
    scaled.fill(Qt::transparent);
    QPainter painter(&scaled);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRectF(QPointF(0.0, 0.0), QSizeF(size)), image, QRectF(source));
    painter.end();
    // Kept from the second time on: the full-window screens load a fresh picture for every
    // draw, and a copy of one would never be drawn again.
    if (found == entries_.end())
        entries_.push_back({key, source, size, {}, redraw_});
    else {
        found->scaled = scaled;
        found->lastRedraw = redraw_;
    }
    return scaled;
}

ScaledPictures& scaledPictures() {
    static ScaledPictures pictures;
    return pictures;
}

} // namespace apsis
