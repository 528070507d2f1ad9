#include "platform/qt_magnify.h"

#include "platform/qt_blend_lines.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include <QPaintEngine>
#include <QRegion>

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

// The lines of the picture that a magnified draw reads, blended across to the surface's pixels,
// and where each line of the surface samples them.
struct Lines {
    QRect area;
    Samples down;
    int first = 0;
    std::vector<std::uint32_t> pixels; // area.width() a line
    QImage::Format format = QImage::Format_RGB32;
};

bool linesOf(Lines& l, const QImage& image, const QRectF& from, const QRectF& target,
             const QRect& area) {
    const QRect readable = from.toAlignedRect().intersected(image.rect());
    if (area.isEmpty() || readable.isEmpty())
        return false;
    l.area = area;
    l.format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    // Only the pixels that may be read, four bytes each.
    const QImage pixels = image.copy(readable).convertToFormat(l.format);
    const Samples across =
        samplesOf(area.left(), area.width(), target.left(), target.width(),
                  from.left() - readable.left(), from.width(), 0, readable.width() - 1);
    l.down = samplesOf(area.top(), area.height(), target.top(), target.height(),
                       from.top() - readable.top(), from.height(), 0, readable.height() - 1);
    l.first = l.down.first.front();
    const int last = l.down.second.back();
    const auto width = static_cast<std::size_t>(area.width());
    l.pixels.resize(width * static_cast<std::size_t>(last - l.first + 1));
    for (int line = l.first; line <= last; ++line) {
        const auto* in = reinterpret_cast<const std::uint32_t*>(pixels.constScanLine(line));
        std::uint32_t* out = l.pixels.data() + width * static_cast<std::size_t>(line - l.first);
        for (std::size_t i = 0; i < width; ++i)
            out[i] = blend(in[across.first[i]], in[across.second[i]], across.weight[i]);
    }
    return true;
}

// Lays a premultiplied pixel over out, as Qt lays it: what shows through is kept in proportion to
// the transparency, each channel divided by 255 with Qt's rounding.
inline void layOver(std::uint32_t pixel, std::uint32_t& out) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 255) {
        out = pixel;
    } else if (alpha != 0) {
        const std::uint32_t keep = 255 - alpha;
        std::uint32_t redBlue = (out & 0xff00ffU) * keep + 0x800080U;
        redBlue = ((redBlue + ((redBlue >> 8) & 0xff00ffU)) >> 8) & 0xff00ffU;
        std::uint32_t alphaGreen = ((out >> 8) & 0xff00ffU) * keep + 0x800080U;
        alphaGreen = (alphaGreen + ((alphaGreen >> 8) & 0xff00ffU)) & 0xff00ff00U;
        out = pixel + (redBlue | alphaGreen);
    }
}

// Lays count premultiplied pixels over out. Most pixels of a picture are wholly opaque or wholly
// transparent, and come in runs: four of them alike cost a copy or nothing.
void layOver(const std::uint32_t* pixels, std::uint32_t* out, std::size_t count) {
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const std::uint32_t all = pixels[i] & pixels[i + 1] & pixels[i + 2] & pixels[i + 3];
        const std::uint32_t any = pixels[i] | pixels[i + 1] | pixels[i + 2] | pixels[i + 3];
        if (all >> 24 == 255) {
            std::memcpy(out + i, pixels + i, 4 * sizeof(std::uint32_t));
        } else if (any >> 24 != 0) {
            for (std::size_t j = i; j < i + 4; ++j)
                layOver(pixels[j], out[j]);
        }
    }
    for (; i < count; ++i)
        layOver(pixels[i], out[i]);
}

// Writes the pixels part (surface pixels, within l.area) into into, whose pixel (0, 0) lies at
// origin of the surface, or lays them over what is there when over. Each line of the surface is
// blended down between two of the lines.
void write(const Lines& l, const QRect& part, QImage& into, QPoint origin, bool over = false) {
    // A line of the picture's pixels before they are laid over; whole pixels, so aligned as one.
    std::vector<std::uint32_t> laidPixels(over ? static_cast<std::size_t>(part.width()) : 0);
    auto* laid = reinterpret_cast<std::uint8_t*>(laidPixels.data());
    const auto width = static_cast<std::size_t>(l.area.width());
    const auto skip = 4 * static_cast<std::size_t>(part.left() - l.area.left());
    const auto bytes = 4 * static_cast<std::size_t>(part.width());
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto row = static_cast<std::size_t>(y - l.area.top());
        const auto* upper =
            reinterpret_cast<const std::uint8_t*>(
                l.pixels.data() + width * static_cast<std::size_t>(l.down.first[row] - l.first)) +
            skip;
        const auto* lower =
            reinterpret_cast<const std::uint8_t*>(
                l.pixels.data() + width * static_cast<std::size_t>(l.down.second[row] - l.first)) +
            skip;
        const auto w = static_cast<std::uint16_t>(l.down.weight[row]);
        // Written where the painter writes: never a copy of the pixels made for this.
        auto* out = const_cast<std::uint8_t*>(into.constScanLine(y - origin.y())) +
                    4 * static_cast<std::ptrdiff_t>(part.left() - origin.x());
        blendLines(upper, lower, over ? laid : out, bytes, w);
        if (over)
            layOver(laidPixels.data(), reinterpret_cast<std::uint32_t*>(out), bytes / 4);
    }
}

// The image the painter writes into, when a picture may be written or laid into it directly,
// pixel for pixel: a raster image of 32-bit pixels, drawn on at full opacity, over.
QImage* writableSurface(QPainter& painter) {
    QPaintEngine* engine = painter.paintEngine();
    if (engine == nullptr || engine->type() != QPaintEngine::Raster || painter.opacity() != 1.0 ||
        painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return nullptr;
    QPaintDevice* device = engine->paintDevice();
    if (device == nullptr || device->devType() != QInternal::Image)
        return nullptr;
    auto* surface = static_cast<QImage*>(device);
    const QImage::Format format = surface->format();
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied
               ? surface
               : nullptr;
}

// The target of a magnified draw (device pixels) and the surface's pixels whose centres lie in
// it, as far as the surface reaches; false when the painter does more than scale and shift, or
// the picture is not magnified enough to be drawn this way.
bool placed(const QTransform& device, const QRectF& to, const QRectF& from, const QRectF& surface,
            QRectF& target, QRect& area) {
    if (device.type() > QTransform::TxScale || !(device.m11() > 0.0) || !(device.m22() > 0.0))
        return false;
    target = device.mapRect(to);
    if (target.width() < from.width() * kLeastMagnification ||
        target.height() < from.height() * kLeastMagnification)
        return false;
    const QPoint topLeft(qRound(target.left()), qRound(target.top()));
    const QPoint end(qRound(target.right()), qRound(target.bottom()));
    area = QRect(topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y()))
               .intersected(device.mapRect(surface).toAlignedRect());
    return true;
}

// One pixel's sample of the picture along an axis, packed: first, second and weight.
std::vector<std::uint64_t> packed(const Samples& s) {
    std::vector<std::uint64_t> samples(s.first.size());
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::uint64_t>(s.first[i]) << 36 |
                     static_cast<std::uint64_t>(s.second[i]) << 12 | s.weight[i];
    return samples;
}

} // namespace

QImage magnified(const QImage& image, const QRectF& from, const QRectF& target, const QRect& area) {
    Lines lines;
    if (!linesOf(lines, image, from, target, area))
        return {};
    QImage result(area.size(), lines.format);
    write(lines, area, result, area.topLeft());
    return result;
}

std::optional<MagnifiedSampling> samplingOf(const QTransform& device, const QRectF& to,
                                            const QImage& image, const QRectF& from,
                                            const QRectF& surface) {
    QRectF target;
    QRect area;
    if (!placed(device, to, from, surface, target, area))
        return std::nullopt;
    const QRect readable = from.toAlignedRect().intersected(image.rect());
    if (area.isEmpty() || readable.isEmpty())
        return std::nullopt;
    MagnifiedSampling s;
    s.image = image.cacheKey();
    s.readable = readable;
    s.area = area;
    // As linesOf samples them.
    s.across =
        packed(samplesOf(area.left(), area.width(), target.left(), target.width(),
                         from.left() - readable.left(), from.width(), 0, readable.width() - 1));
    s.down =
        packed(samplesOf(area.top(), area.height(), target.top(), target.height(),
                         from.top() - readable.top(), from.height(), 0, readable.height() - 1));
    return s;
}

bool drawMagnified(QPainter& painter, const QRectF& to, const QImage& image, const QRectF& from,
                   const QRectF& surface) {
    const QTransform device = painter.deviceTransform();
    QRectF target;
    QRect area;
    if (!placed(device, to, from, surface, target, area))
        return false;
    // The surface's pixels whose centres lie in the target, as far as the surface and the clips
    // reach: the painter's own, and the system's, which a widget's paint is held within (device
    // pixels), and which the painter does not report as its own.
    const QRegion system =
        painter.paintEngine() != nullptr ? painter.paintEngine()->systemClip() : QRegion();
    if (!system.isEmpty())
        area = area.intersected(system.boundingRect());
    if (painter.hasClipping())
        area = area.intersected(
            device.mapRect(painter.clipBoundingRect()).toAlignedRect().adjusted(-1, -1, 1, 1));
    Lines lines;
    if (area.isEmpty() || !linesOf(lines, image, from, target, area))
        return true;
    // Written straight into the surface where the clips let it, when it can be: a copy of the
    // view's size less to make and to copy again.
    if (QImage* pixels = writableSurface(painter)) {
        QRegion region(area.intersected(pixels->rect()));
        if (!system.isEmpty())
            region &= system;
        if (painter.hasClipping())
            region &= device.map(painter.clipRegion());
        for (const QRect& part : region)
            write(lines, part, *pixels, QPoint(0, 0), image.hasAlphaChannel());
        return true;
    }
    QImage part(area.size(), lines.format);
    write(lines, area, part, area.topLeft());
    const QTransform world = painter.worldTransform();
    painter.setWorldTransform(device.inverted());
    painter.drawImage(area.topLeft(), part);
    painter.setWorldTransform(world);
    return true;
}

} // namespace apsis
