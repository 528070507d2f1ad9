#include "platform/qt_scaled_pictures.h"

#include "platform/qt_magnify.h"

#include <algorithm>
#include <cmath>

namespace apsis {
namespace {

// Smaller pictures cost Qt little to scale while drawing; larger ones than a 4K screen are never
// kept, whatever asks for them.
constexpr qint64 kSmallestKept = qint64{64} * 64;    // pixels
constexpr qint64 kLargestKept = qint64{4096} * 4096; // pixels

// Lines of a band: under the 96 from which Qt shares a draw among threads.
constexpr int kBandLines = 64;
// Pixels of the surface to one pixel of a picture beyond which Qt samples the picture in floating
// point rather than in 16.16 fixed point.
constexpr double kFinestSampling = 256.0;

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
    // A picture decoded more finely is a new image drawn at the size its coarser self was: the
    // coarser copy goes now, not two redraws on, or both are held at once, 21 MB each for the
    // station at 200 m across a full-HD view.
    std::erase_if(entries_, [&](const Entry& e) {
        return e.size == size && e.image != key && e.lastRedraw < redraw_;
    });
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
    const QRect whole(QPoint(0, 0), size);
    QImage scaled;
    if (size.width() >= source.width() * kLeastMagnification &&
        size.height() >= source.height() * kLeastMagnification) {
        scaled = magnified(image, QRectF(source), QRectF(whole), whole);
    } else {
        scaled = QImage(size, image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                      : QImage::Format_RGB32);
        scaled.fill(Qt::transparent);
        QPainter painter(&scaled);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        drawInBands(painter, QRectF(whole), image, QRectF(source));
        painter.end();
    }
    // Kept from the second time on: while the view zooms every frame asks for a new size, and a
    // copy made for one of those would never be drawn again.
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

void blitInBands(QPainter& painter, QPoint topLeft, const QImage& image) {
    for (int top = 0; top < image.height(); top += kBandLines) {
        const int lines = std::min(kBandLines, image.height() - top);
        painter.drawImage(QPoint(topLeft.x(), topLeft.y() + top), image,
                          QRect(0, top, image.width(), lines));
    }
}

void drawInBands(QPainter& painter, const QRectF& to, const QImage& image, const QRectF& from) {
    // Bands are cut along whole device pixels, which a clip keeps exactly; under any transform
    // but a shift by whole pixels the picture is drawn in one piece.
    const QTransform device = painter.deviceTransform();
    const QRect pixels = device.mapRect(to).toAlignedRect();
    // Magnified beyond what Qt's fixed-point sampling resolves, a picture costs Qt many times
    // more a pixel, and drawn in bands more again: in one piece it takes about half the CPU, and
    // Qt's worker threads share it.
    const bool magnifiedPastFixedPoint = from.width() * kFinestSampling < pixels.width() ||
                                         from.height() * kFinestSampling < pixels.height();
    if (device.type() > QTransform::TxTranslate || device.dx() != std::round(device.dx()) ||
        device.dy() != std::round(device.dy()) || pixels.height() <= kBandLines ||
        magnifiedPastFixedPoint) {
        painter.drawImage(to, image, from);
        return;
    }
    const QTransform back = device.inverted();
    for (int top = pixels.top(); top <= pixels.bottom(); top += kBandLines) {
        painter.save();
        painter.setClipRect(back.mapRect(QRect(pixels.left(), top, pixels.width(), kBandLines)),
                            Qt::IntersectClip);
        painter.drawImage(to, image, from);
        painter.restore();
    }
}

} // namespace apsis
