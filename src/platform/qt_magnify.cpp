#include "platform/qt_magnify.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace apsis {
namespace {

// Where each pixel of one axis of the surface samples the picture: the two pixels it lies
// between and the weight of the second, in 256ths, as Qt's filtered drawing weighs them.
struct Samples {
    std::vector<int> first;
    std::vector<int> second;
    std::vector<std::uint32_t> weight;
};

// Pixels start .. start + count of the surface along an axis where target (surface) shows
// [from, from + span) of the picture, whose pixels low .. high may be read.
Samples samplesOf(int start, int count, double targetStart, double targetSpan, double from,
                  double span, int low, int high) {
    Samples s;
    s.first.resize(static_cast<std::size_t>(count));
    s.second.resize(s.first.size());
    s.weight.resize(s.first.size());
    const double step = span / targetSpan;
    for (int i = 0; i < count; ++i) {
        const double at = from + (start + i + 0.5 - targetStart) * step - 0.5;
        const double below = std::floor(at);
        const auto index = static_cast<std::size_t>(i);
        const int pixel = static_cast<int>(below);
        s.first[index] = std::clamp(pixel, low, high);
        s.second[index] = std::clamp(pixel + 1, low, high);
        s.weight[index] = static_cast<std::uint32_t>((at - below) * 256.0);
    }
    return s;
}

// a and b, four 8-bit channels each, blended with weight w (of 256) of b.
inline std::uint32_t blend(std::uint32_t a, std::uint32_t b, std::uint32_t w) {
    const std::uint32_t v = 256 - w;
    const std::uint32_t redBlue = (((a & 0xff00ffU) * v + (b & 0xff00ffU) * w) >> 8) & 0xff00ffU;
    const std::uint32_t alphaGreen =
        (((a >> 8) & 0xff00ffU) * v + ((b >> 8) & 0xff00ffU) * w) & 0xff00ff00U;
    return redBlue | alphaGreen;
}

} // namespace

QImage magnified(const QImage& image, const QRectF& from, const QRectF& target, const QRect& area) {
    const QRect readable = from.toAlignedRect().intersected(image.rect());
    if (area.isEmpty() || readable.isEmpty())
        return {};
    const bool opaque = !image.hasAlphaChannel();
    // Only the pixels that may be read, four bytes each.
    const QImage pixels = image.copy(readable).convertToFormat(
        opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    const Samples across =
        samplesOf(area.left(), area.width(), target.left(), target.width(),
                  from.left() - readable.left(), from.width(), 0, readable.width() - 1);
    const Samples down =
        samplesOf(area.top(), area.height(), target.top(), target.height(),
                  from.top() - readable.top(), from.height(), 0, readable.height() - 1);

    // Each line of the picture that is read, blended across to the surface's width.
    const int firstLine = down.first.front();
    const int lastLine = down.second.back();
    const auto width = static_cast<std::size_t>(area.width());
    std::vector<std::uint32_t> lines(width * static_cast<std::size_t>(lastLine - firstLine + 1));
    for (int line = firstLine; line <= lastLine; ++line) {
        const auto* in = reinterpret_cast<const std::uint32_t*>(pixels.constScanLine(line));
        std::uint32_t* out = lines.data() + width * static_cast<std::size_t>(line - firstLine);
        for (std::size_t i = 0; i < width; ++i)
            out[i] = blend(in[across.first[i]], in[across.second[i]], across.weight[i]);
    }

    // Each line of the surface, blended down between two of those channel by channel: the same
    // sums as blend's, in a form the compiler does sixteen at a time.
    QImage result(area.size(), pixels.format());
    const std::size_t bytes = 4 * width;
    for (int y = 0; y < area.height(); ++y) {
        const auto row = static_cast<std::size_t>(y);
        const auto* upper = reinterpret_cast<const std::uint8_t*>(
            lines.data() + width * static_cast<std::size_t>(down.first[row] - firstLine));
        const auto* lower = reinterpret_cast<const std::uint8_t*>(
            lines.data() + width * static_cast<std::size_t>(down.second[row] - firstLine));
        const auto w = static_cast<std::uint16_t>(down.weight[row]);
        const auto v = static_cast<std::uint16_t>(256 - w);
        std::uint8_t* out = result.scanLine(y);
        for (std::size_t i = 0; i < bytes; ++i)
            out[i] = static_cast<std::uint8_t>((upper[i] * v + lower[i] * w) >> 8);
    }
    return result;
}

bool drawMagnified(QPainter& painter, const QRectF& to, const QImage& image, const QRectF& from,
                   const QRectF& surface) {
    const QTransform device = painter.deviceTransform();
    if (device.type() > QTransform::TxScale || !(device.m11() > 0.0) || !(device.m22() > 0.0))
        return false;
    const QRectF target = device.mapRect(to);
    if (target.width() < from.width() * kLeastMagnification ||
        target.height() < from.height() * kLeastMagnification)
        return false;
    // The surface's pixels whose centres lie in the target, as far as the surface and the clip
    // reach.
    const QPoint topLeft(qRound(target.left()), qRound(target.top()));
    const QPoint end(qRound(target.right()), qRound(target.bottom()));
    QRect area(topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y()));
    area = area.intersected(device.mapRect(surface).toAlignedRect());
    if (painter.hasClipping())
        area = area.intersected(
            device.mapRect(painter.clipBoundingRect()).toAlignedRect().adjusted(-1, -1, 1, 1));
    if (area.isEmpty())
        return true;
    const QImage part = magnified(image, from, target, area);
    if (part.isNull())
        return true;
    const QTransform world = painter.worldTransform();
    painter.setWorldTransform(device.inverted());
    painter.drawImage(area.topLeft(), part);
    painter.setWorldTransform(world);
    return true;
}

} // namespace apsis
