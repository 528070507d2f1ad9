#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QRegion>
#include <QTransform>

namespace apsis {

// Pictures drawn magnified, without asking Qt to sample them.
//
// Qt scales a picture with a filtered fetch for every pixel it covers, and beyond 256 pixels of the
// surface to one of the picture it samples in floating point: a planet filling the view after a
// zoom costs it 20 ms a frame. Magnified, each line of the surface is a blend of two lines of the
// picture, and each of those a blend of two of its pixels: the picture's few lines are blended
// across once, and each line of the surface is then one blend of two of those. The pixels are
// what Qt's filtered drawing gives, to a level or two of rounding.

// Pictures magnified at least this much along both axes are drawn this way.
inline constexpr double kLeastMagnification = 2.0;

// The part area (device pixels) of image's pixels from drawn smoothly into target (device
// pixels): each pixel is sampled at its centre, between the four nearest pixels of the picture,
// never outside from's whole pixels. Premultiplied when the picture has transparency.
QImage magnified(const QImage& image, const QRectF& from, const QRectF& target, const QRect& area);

// Draws from (pixels of image) into to (painter units) as the painter's filtered drawing would,
// when the painter only scales and shifts and the picture is magnified at least
// kLeastMagnification times; false, having drawn nothing, otherwise. Only what lies on surface
// (painter units) and within the painter's clip is worked out.
bool drawMagnified(QPainter& painter, const QRectF& to, const QImage& image, const QRectF& from,
                   const QRectF& surface);

// What decides the pixels of a magnified draw: the picture's pixels (by QImage::cacheKey), the part
// of them it may read, and where each column and each line of the surface's pixels drawn (device
// pixels) samples them: the two pixels of the picture it lies between and the weight of the
// second. Two draws of the same pixels that sample a column and a line alike write the same pixel
// where they cross.
struct MagnifiedSampling {
    qint64 image = 0;
    QRect readable;
    QRect area;
    std::vector<std::uint64_t> across; // a column of area each
    std::vector<std::uint64_t> down;   // a line of area each
};

// How drawMagnified, through a painter of the given device transform and no world transform of
// its own, would sample image; nothing when it would not draw it.
std::optional<MagnifiedSampling> samplingOf(const QTransform& device, const QRectF& to,
                                            const QImage& image, const QRectF& from,
                                            const QRectF& surface);

// The surface's pixels (device pixels) that can differ between a draw sampled as before and one
// sampled as now: those that only one of them draws, and the columns and lines of both that they
// sample differently.
QRegion changedPixels(const MagnifiedSampling& before, const MagnifiedSampling& now);

} // namespace apsis
