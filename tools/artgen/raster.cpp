#include "raster.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace apsis::artgen {

float clamp01(float v) {
    return std::clamp(v, 0.0f, 1.0f);
}

float smoothstep(float edge0, float edge1, float v) {
    const float t = clamp01((v - edge0) / (edge1 - edge0));
    return t * t * (3.0f - 2.0f * t);
}

Raster::Raster(int w, int h)
    : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

Rgba Raster::sample(float x, float y) const {
    const float fx = x - 0.5f;
    const float fy = y - 0.5f;
    const float x0f = std::floor(fx);
    const float y0f = std::floor(fy);
    const int x0 = static_cast<int>(x0f);
    const int y0 = static_cast<int>(y0f);
    const float tx = fx - x0f;
    const float ty = fy - y0f;
    auto pixel = [this](int px, int py) {
        if (px < 0 || py < 0 || px >= width || py >= height)
            return Rgba{};
        return at(px, py);
    };
    const Rgba top = mix(pixel(x0, y0), pixel(x0 + 1, y0), tx);
    const Rgba bottom = mix(pixel(x0, y0 + 1), pixel(x0 + 1, y0 + 1), tx);
    return mix(top, bottom, ty);
}

namespace {

int toByte(float v) {
    return static_cast<int>(std::lround(clamp01(v) * 255.0f));
}

} // namespace

QImage toImage(const Raster& raster, bool overBlack) {
    QImage image(raster.width, raster.height,
                 overBlack ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < raster.height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < raster.width; ++x) {
            const Rgba& c = raster.at(x, y);
            const int alpha = overBlack ? 255 : toByte(c.a);
            // Premultiplied channels never exceed alpha.
            line[x] = qRgba(std::min(toByte(c.r), alpha), std::min(toByte(c.g), alpha),
                            std::min(toByte(c.b), alpha), alpha);
        }
    }
    return image;
}

Raster fromImage(const QImage& image) {
    const QImage source = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Raster raster(source.width(), source.height());
    for (int y = 0; y < source.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        for (int x = 0; x < source.width(); ++x) {
            const QRgb p = line[x];
            raster.at(x, y) = {
                static_cast<float>(qRed(p)) / 255.0f, static_cast<float>(qGreen(p)) / 255.0f,
                static_cast<float>(qBlue(p)) / 255.0f, static_cast<float>(qAlpha(p)) / 255.0f};
        }
    }
    return raster;
}

Raster makeSheet(const Raster& body, int spritesWide, int frameSize) {
    constexpr int kSamples = 3;
    const int frames = spritesWide * spritesWide;
    const float scale = static_cast<float>(body.width) / static_cast<float>(frameSize);
    const float bodyCentre = static_cast<float>(body.width) / 2.0f;
    const float frameCentre = static_cast<float>(frameSize) / 2.0f;
    Raster sheet(frameSize * spritesWide, frameSize * spritesWide);
    for (int frame = 0; frame < frames; ++frame) {
        const double turn = 2.0 * std::numbers::pi * frame / frames;
        const auto c = static_cast<float>(std::cos(turn));
        const auto s = static_cast<float>(std::sin(turn));
        const int left = (frame % spritesWide) * frameSize;
        const int top = (frame / spritesWide) * frameSize;
        for (int y = 0; y < frameSize; ++y) {
            for (int x = 0; x < frameSize; ++x) {
                const float cx = static_cast<float>(x) + 0.5f - frameCentre;
                const float cy = static_cast<float>(y) + 0.5f - frameCentre;
                Rgba sum;
                for (int j = 0; j < kSamples; ++j) {
                    for (int i = 0; i < kSamples; ++i) {
                        const float dx = cx + (static_cast<float>(i) + 0.5f) / kSamples - 0.5f;
                        const float dy = cy + (static_cast<float>(j) + 0.5f) / kSamples - 0.5f;
                        // The frame shows the body turned clockwise on screen (y down), so each
                        // of its points is found in the body picture by turning back.
                        const float bx = dx * c + dy * s;
                        const float by = -dx * s + dy * c;
                        const Rgba v =
                            body.sample(bodyCentre + bx * scale, bodyCentre + by * scale);
                        sum = {sum.r + v.r, sum.g + v.g, sum.b + v.b, sum.a + v.a};
                    }
                }
                sheet.at(left + x, top + y) = faded(sum, 1.0f / (kSamples * kSamples));
            }
        }
    }
    return sheet;
}

} // namespace apsis::artgen
