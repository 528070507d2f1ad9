#include "bodies.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace apsis::artgen {

namespace {

// A bowl on a surface: its centre (a direction, or a point of the picture) and radius.
struct Crater {
    Vec3 centre;
    float radius;
};

// How a crater changes the brightness of a point at distance d from its centre: a darker floor,
// a bright raised rim and a faint apron of ejecta.
float craterLight(float d, float radius) {
    const float t = d / radius;
    if (t >= 1.6f)
        return 1.0f;
    if (t < 0.8f)
        return 0.8f + 0.06f * t;
    if (t < 1.0f)
        return 0.86f + 0.34f * smoothstep(0.8f, 0.95f, t) - 0.1f * smoothstep(0.95f, 1.0f, t);
    return 1.1f - 0.1f * smoothstep(1.0f, 1.6f, t);
}

// Many small craters and few large ones, spread evenly over the sphere.
std::vector<Crater> scatterCraters(Random& random, int count, float smallest, float largest) {
    std::vector<Crater> craters;
    for (int i = 0; i < count; ++i) {
        const float z = random.uniform(-1.0f, 1.0f);
        const float angle = random.uniform(0.0f, 2.0f * std::numbers::pi_v<float>);
        const float s = std::sqrt(1.0f - z * z);
        const float u = random.uniform();
        craters.push_back({{s * std::cos(angle), s * std::sin(angle), z},
                           smallest * std::pow(largest / smallest, u * u * u)});
    }
    return craters;
}

} // namespace

// The Moon: grey highlands, dark smooth maria, and craters of every size.
Raster drawMoon(int size) {
    const Noise maria(601);
    const Noise grain(602);
    Random random(603);
    const std::vector<Crater> craters = scatterCraters(random, 420, 0.012f, 0.2f);
    return drawGlobe(size, 0.985f, 0.0f, [&](Vec3 p, float mu) {
        const float sea =
            smoothstep(0.54f, 0.62f, maria.warped(p * 1.4f + Vec3{6.0f, 2.0f, 1.0f}, 6, 0.6f));
        Rgba c = mix(opaque(0.66f, 0.65f, 0.63f), opaque(0.36f, 0.36f, 0.37f), sea);
        float light = 0.88f + 0.24f * grain.fractal(p * 14.0f, 5);
        for (const Crater& crater : craters) {
            const Vec3 d = p + crater.centre * -1.0f;
            const float distance = std::sqrt(dot(d, d));
            if (distance < crater.radius * 1.6f)
                light *= craterLight(distance, crater.radius);
        }
        c = shaded(c, light * limb(mu, 0.4f));
        return c;
    });
}

namespace {

// Three passes of a box blur of the given radius, along rows and then along columns: close to a
// Gaussian, it rounds off the creases of a height field.
void blur(std::vector<float>& field, int size, int radius) {
    std::vector<float> line(static_cast<std::size_t>(size));
    auto at = [&](int x, int y, bool rows) -> float& {
        return field[static_cast<std::size_t>(rows ? y * size + x : x * size + y)];
    };
    for (int pass = 0; pass < 6; ++pass) {
        const bool rows = pass % 2 == 0;
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                float sum = 0.0f;
                for (int i = -radius; i <= radius; ++i)
                    sum += at(std::clamp(x + i, 0, size - 1), y, rows);
                line[static_cast<std::size_t>(x)] = sum / static_cast<float>(2 * radius + 1);
            }
            for (int x = 0; x < size; ++x)
                at(x, y, rows) = line[static_cast<std::size_t>(x)];
        }
    }
}

} // namespace

// The asteroid: a lumpy, elongated rock, pitted by craters. It is shaded as a height field lit
// from the viewer's side: slopes darken whichever way they face, so the picture may turn.
Raster drawAsteroid(int size) {
    const Noise outline(701);
    const Noise relief(702);
    const Noise tint(703);
    Random random(704);
    constexpr int kSteps = 720;
    constexpr float kTurn = 2.0f * std::numbers::pi_v<float>;
    // The outline: an ellipse made irregular by noise taken round a circle, so it closes on itself.
    std::vector<float> reach(kSteps + 1);
    float longest = 0.0f;
    for (std::size_t i = 0; i <= kSteps; ++i) {
        const float a = kTurn * static_cast<float>(i) / kSteps;
        const float ellipse = 1.0f / std::hypot(std::cos(a + 0.3f), std::sin(a + 0.3f) / 0.62f);
        const Vec3 round{std::cos(a) * 1.3f, std::sin(a) * 1.3f, 0.5f};
        reach[i] = ellipse * (0.78f + 0.45f * outline.fractal(round, 5, 0.55f) -
                              0.08f * outline.fractal(round * 4.0f, 3));
        longest = std::max(longest, reach[i]);
    }
    constexpr int kCraters = 45;
    std::vector<Crater> pits;
    pits.reserve(kCraters);
    for (int i = 0; i < kCraters; ++i)
        pits.push_back({{random.uniform(-0.9f, 0.9f), random.uniform(-0.6f, 0.6f), 0.0f},
                        0.03f + 0.16f * std::pow(random.uniform(), 3.0f)});

    const float half = static_cast<float>(size) / 2.0f;
    const float scale = 0.97f * half / longest; // pixels per unit of the outline
    std::vector<float> edgeX, edgeY;
    for (std::size_t i = 0; i < kSteps; ++i) {
        const float a = kTurn * static_cast<float>(i) / kSteps;
        edgeX.push_back(std::cos(a) * reach[i] * scale);
        edgeY.push_back(std::sin(a) * reach[i] * scale);
    }
    const auto count = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    const auto cell = [size](int x, int y) {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
               static_cast<std::size_t>(x);
    };
    std::vector<float> cover(count), height(count), shade(count);
    const float shoulder = 0.4f * half; // how far in from the outline the rock's top is reached
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const std::size_t k = cell(x, y);
            const float sx = static_cast<float>(x) + 0.5f - half;
            const float sy = half - static_cast<float>(y) - 0.5f;
            float a = std::atan2(sy, sx);
            if (a < 0.0f)
                a += kTurn;
            const float f = a / kTurn * kSteps;
            const auto i = std::min(static_cast<std::size_t>(f), std::size_t{kSteps - 1});
            const float edge =
                (reach[i] + (reach[i + 1] - reach[i]) * (f - static_cast<float>(i))) * scale;
            cover[k] = clamp01(edge - std::hypot(sx, sy) + 0.5f);
            if (cover[k] <= 0.0f)
                continue;
            float inside = 1e9f;
            for (std::size_t j = 0; j < edgeX.size(); ++j)
                inside = std::min(inside, std::hypot(sx - edgeX[j], sy - edgeY[j]));
            const float t = std::min(inside / shoulder, 1.0f);
            height[k] = shoulder * std::sqrt(t * (2.0f - t));
        }
    }
    blur(height, size, size / 40 + 1);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const std::size_t k = cell(x, y);
            const float px = (static_cast<float>(x) + 0.5f - half) / scale;
            const float py = (half - static_cast<float>(y) - 0.5f) / scale;
            // Roughness, and bowls with raised rims dug into the rock.
            float h = 0.05f * relief.fractal({px * 5.0f, py * 5.0f, 0.7f}, 7, 0.55f);
            for (const Crater& pit : pits) {
                const float d = std::hypot(px - pit.centre.x, py - pit.centre.y) / pit.radius;
                if (d < 1.0f)
                    h -= 0.3f * pit.radius * (1.0f - d * d);
                else if (d < 1.4f)
                    h += 0.06f * pit.radius * (1.0f - std::abs(d - 1.15f) / 0.25f);
            }
            height[k] += h * scale;
            shade[k] = tint.fractal({px * 2.5f, py * 2.5f, 3.0f}, 6);
        }
    }
    Raster picture(size, size);
    for (int y = 1; y + 1 < size; ++y) {
        for (int x = 1; x + 1 < size; ++x) {
            const std::size_t k = cell(x, y);
            if (cover[k] <= 0.0f)
                continue;
            const float gx = (height[k + 1] - height[k - 1]) / 2.0f;
            const float gy = (height[k + static_cast<std::size_t>(size)] -
                              height[k - static_cast<std::size_t>(size)]) /
                             2.0f;
            const float facing = 1.0f / std::sqrt(1.0f + gx * gx + gy * gy);
            const Rgba rock = mix(opaque(0.36f, 0.33f, 0.29f), opaque(0.62f, 0.57f, 0.50f),
                                  smoothstep(0.25f, 0.75f, shade[k]));
            picture.at(x, y) = faded(shaded(rock, 0.2f + 0.9f * std::pow(facing, 2.0f)), cover[k]);
        }
    }
    return picture;
}

} // namespace apsis::artgen
