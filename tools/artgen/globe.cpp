#include "bodies.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace apsis::artgen {

float limb(float z, float strength) {
    return 1.0f - strength * (1.0f - std::sqrt(z));
}

Raster drawGlobe(int size, float radius, float tilt, const Surface& surface) {
    Raster picture(size, size);
    const float c = std::cos(tilt);
    const float s = std::sin(tilt);
    const float half = static_cast<float>(size) / 2.0f;
    const float r = radius * half;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float px = (static_cast<float>(x) + 0.5f - half) / r;
            const float py = (half - static_cast<float>(y) - 0.5f) / r;
            const float d = std::sqrt(px * px + py * py);
            const float coverage = clamp01((1.0f - d) * r + 0.5f);
            if (coverage <= 0.0f)
                continue;
            // Rim pixels take the colour of the limb itself.
            const float k = d > 1.0f ? 1.0f / d : 1.0f;
            const Vec3 v{px * k, py * k, std::sqrt(std::max(0.0f, 1.0f - d * d * k * k))};
            const Vec3 p{v.x, v.y * c + v.z * s, v.z * c - v.y * s};
            picture.at(x, y) = faded(surface(p, v.z), coverage);
        }
    }
    return picture;
}

// The Sun: a yellow-white centre reddening and darkening towards the limb, fine granulation, a
// few spots, and a glow that fades to nothing at the edge of the picture.
Raster drawSun(int size) {
    constexpr float kDisc = 0.88f;
    const Noise grain(101);
    const Noise patches(102);
    Random random(103);
    struct Spot {
        Vec3 centre;
        float radius;
    };
    std::vector<Spot> spots;
    for (int i = 0; i < 5; ++i) {
        const float latitude =
            random.uniform(0.15f, 0.5f) * (random.uniform() < 0.5f ? -1.0f : 1.0f);
        const float longitude = random.uniform(-1.1f, 1.1f);
        spots.push_back({{std::cos(latitude) * std::sin(longitude), std::sin(latitude),
                          std::cos(latitude) * std::cos(longitude)},
                         random.uniform(0.03f, 0.075f)});
    }
    Raster picture = drawGlobe(size, kDisc, 0.0f, [&](Vec3 p, float mu) {
        const Stop palette[] = {{0.0f, opaque(1.0f, 0.95f, 0.6f)},
                                {0.5f, opaque(1.0f, 0.76f, 0.24f)},
                                {1.0f, opaque(0.92f, 0.36f, 0.04f)}};
        const Rgba c = ramp(palette, 1.0f - mu);
        float light = limb(mu, 0.5f);
        light *= 0.95f + 0.1f * grain.fractal(p * 90.0f, 2);
        // Bright faculae show best near the limb.
        light *= 1.0f + 0.2f * (1.0f - mu) * smoothstep(0.58f, 0.72f, patches.fractal(p * 7.0f, 4));
        for (const Spot& spot : spots) {
            const Vec3 d = p + spot.centre * -1.0f;
            const float t = std::sqrt(dot(d, d)) / spot.radius;
            const float umbra = smoothstep(0.4f, 0.5f, t);
            const float penumbra = smoothstep(0.9f, 1.0f, t);
            light *= 0.25f + 0.75f * umbra * (0.6f + 0.4f * penumbra);
        }
        return shaded(c, light);
    });
    // The glow: an orange halo from the disc's edge out to the picture's inscribed circle.
    const float half = static_cast<float>(size) / 2.0f;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float dx = static_cast<float>(x) + 0.5f - half;
            const float dy = static_cast<float>(y) + 0.5f - half;
            const float r = std::sqrt(dx * dx + dy * dy) / half;
            if (r < kDisc - 0.01f || r >= 1.0f)
                continue;
            const float t = clamp01((r - kDisc) / (1.0f - kDisc));
            const float strength = std::exp(-2.0f * t) * (1.0f - t) * (1.0f - t);
            const Rgba glow = faded(opaque(1.0f, 0.6f, 0.15f), 1.0f * strength);
            picture.at(x, y) = over(picture.at(x, y), glow);
        }
    }
    return picture;
}

} // namespace apsis::artgen
