#include "platform/qt_canvas.h"
#include "platform/qt_convert.h"
#include "platform/qt_magnify.h"
#include "platform/qt_picture.h"
#include "platform/qt_scaled_pictures.h"

#include <algorithm>

// The pictures of a QtCanvas: cut from their sheets, placed on the surface, and drawn from a copy
// kept scaled, magnified by hand, or by Qt's filtered drawing.
namespace apsis {

bool QtCanvas::placePicture(const Picture& picture, const Rect& source, const Rect& dest, Size size,
                            QRectF& from, QRectF& to) {
    if (!finite(source) || !finite(dest) || !(source.width > 0.0f) || !(source.height > 0.0f) ||
        !(dest.width > 0.0f) || !(dest.height > 0.0f))
        return false;
    // The picture's own rectangles count from its bottom-left corner too.
    from = QRectF(static_cast<double>(source.x),
                  static_cast<double>(picture.height()) - static_cast<double>(source.y) -
                      static_cast<double>(source.height),
                  static_cast<double>(source.width), static_cast<double>(source.height));
    to = flipped(dest, size);
    if (!(to.right() >= -1.0 && to.left() <= static_cast<double>(size.width) + 1.0 &&
          to.bottom() >= -1.0 && to.top() <= static_cast<double>(size.height) + 1.0))
        return false;
    const QRectF window = windowOf(size);
    // A picture scaled to millions of points is cut to the window, and its source with it in
    // proportion, so that Qt scales only what can be seen.
    if (!window.contains(to)) {
        const QRectF visible = to.intersected(window);
        const double sx = from.width() / to.width();
        const double sy = from.height() / to.height();
        from = QRectF(from.left() + (visible.left() - to.left()) * sx,
                      from.top() + (visible.top() - to.top()) * sy, visible.width() * sx,
                      visible.height() * sy);
        to = visible;
    }
    return true;
}

std::optional<MagnifiedSampling> QtCanvas::magnifiedSampling(const Picture* picture,
                                                             const Rect& source, const Rect& dest,
                                                             Size size, const QTransform& device) {
    const auto* qtPicture = dynamic_cast<const QtPicture*>(picture);
    QRectF from;
    QRectF to;
    if (qtPicture == nullptr || !placePicture(*qtPicture, source, dest, size, from, to))
        return std::nullopt;
    // As drawPicture finds the pixels and draws them.
    const QRectF pixelsTo = device.mapRect(to);
    const double density =
        std::max(pixelsTo.width() / from.width(), pixelsTo.height() / from.height());
    const QtPicture::Pixels pixels = qtPicture->pixels(from, density);
    // Whole pixels of a picture may be drawn from a copy scaled before.
    if (pixels.image.isNull() || QRectF(pixels.from.toRect()) == pixels.from)
        return std::nullopt;
    return samplingOf(
        device, to, pixels.image, pixels.from,
        QRectF(0.0, 0.0, static_cast<double>(size.width), static_cast<double>(size.height)));
}

void QtCanvas::drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                           double opacity) {
    const auto* qtPicture = dynamic_cast<const QtPicture*>(picture);
    opacity = unitInterval(opacity);
    QRectF from;
    QRectF to;
    if (qtPicture == nullptr || !(opacity > 0.0) ||
        !placePicture(*qtPicture, source, dest, size_, from, to))
        return;
    // The pixels of the picture at the size it is drawn, in the surface's own pixels: asked for
    // even where this redraw leaves the picture as it is, since it is still on screen and kept.
    const QRectF device = painter_.deviceTransform().mapRect(to);
    const double density = std::max(device.width() / from.width(), device.height() / from.height());
    const QtPicture::Pixels pixels = qtPicture->pixels(from, density);
    if (pixels.image.isNull() || !reaches(to, 1.0))
        return;
    const QImage& image = pixels.image;
    from = pixels.from;
    painter_.setOpacity(opacity);
    const QRectF surface(0.0, 0.0, static_cast<double>(size_.width),
                         static_cast<double>(size_.height));
    if (!drawScaledBefore(image, from, to) && !(painter_.worldTransform().isIdentity() &&
                                                drawMagnified(painter_, to, image, from, surface)))
        drawInBands(painter_, to, image, from);
    painter_.setOpacity(1.0);
}

bool QtCanvas::drawScaledBefore(const QImage& image, const QRectF& from, const QRectF& to) {
    // Only whole pixels of the picture, and only onto a painter that does nothing but scale to
    // the device's pixels, as a window's or an image's does.
    const QRect source = from.toRect();
    if (QRectF(source) != from || !image.rect().contains(source) ||
        !painter_.worldTransform().isIdentity())
        return false;
    const QTransform device = painter_.deviceTransform();
    if (device.type() > QTransform::TxScale || device.m11() != device.m22() ||
        !(device.m11() > 0.0))
        return false;
    // The destination in device pixels, its edges on the nearest pixel boundaries: never more
    // than half a pixel from where the filtered drawing puts them.
    const QRectF pixels = device.mapRect(to);
    const QPoint topLeft(qRound(pixels.left()), qRound(pixels.top()));
    const QSize size(qRound(pixels.right()) - topLeft.x(), qRound(pixels.bottom()) - topLeft.y());
    const QImage scaled = scaledPictures().lookUp(image, source, size);
    if (scaled.isNull())
        return false;
    painter_.setWorldTransform(device.inverted());
    blitInBands(painter_, topLeft, scaled);
    painter_.setWorldTransform(QTransform());
    return true;
}

} // namespace apsis
