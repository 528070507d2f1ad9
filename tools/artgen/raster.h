#pragma once

#include <vector>

#include <QImage>

namespace apsis::artgen {

// A colour with premultiplied alpha, each channel from 0 to 1.
struct Rgba {
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 0.0f;
};

inline Rgba opaque(float r, float g, float b) {
    return {r, g, b, 1.0f};
}
// Every channel, alpha included, multiplied by k: the colour made fainter.
inline Rgba faded(Rgba c, float k) {
    return {c.r * k, c.g * k, c.b * k, c.a * k};
}
// Only the colour channels multiplied by k: darker or brighter, as opaque as before.
inline Rgba shaded(Rgba c, float k) {
    return {c.r * k, c.g * k, c.b * k, c.a};
}
inline Rgba mix(Rgba x, Rgba y, float t) {
    return {x.r + (y.r - x.r) * t, x.g + (y.g - x.g) * t, x.b + (y.b - x.b) * t,
            x.a + (y.a - x.a) * t};
}
// top laid over bottom.
inline Rgba over(Rgba top, Rgba bottom) {
    const float k = 1.0f - top.a;
    return {top.r + bottom.r * k, top.g + bottom.g * k, top.b + bottom.b * k, top.a + bottom.a * k};
}

float clamp01(float v);
float smoothstep(float edge0, float edge1, float v);

// A picture being made: floating-point pixels with premultiplied alpha, rows from the top.
struct Raster {
    int width = 0;
    int height = 0;
    std::vector<Rgba> pixels;

    Raster(int w, int h);
    Rgba& at(int x, int y) { return pixels[index(x, y)]; }
    const Rgba& at(int x, int y) const { return pixels[index(x, y)]; }
    // Bilinear sample at (x, y), pixel centres lying at half-integers; transparent outside.
    Rgba sample(float x, float y) const;

  private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x);
    }
};

// To 8-bit pixels: over black and opaque (for JPEG), or with its transparency kept.
QImage toImage(const Raster& raster, bool overBlack);
Raster fromImage(const QImage& image);

// A sprite sheet of spritesWide x spritesWide frames of frameSize pixels, made from one square
// picture of the body facing up: frame 0 at the top-left shows it as it is, and each following
// frame, row by row, turns it clockwise by one more equal step. Every frame pixel averages 3 x 3
// samples of the (larger) body picture, so edges stay smooth at any angle.
Raster makeSheet(const Raster& body, int spritesWide, int frameSize);

} // namespace apsis::artgen
