#include "noise.h"

#include <cmath>
#include <utility>

namespace apsis::artgen {

std::uint64_t Random::next() {
    std::uint64_t z = (state_ += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

float Random::uniform() {
    return static_cast<float>(next() >> 40) / static_cast<float>(1 << 24);
}

int Random::below(int n) {
    return static_cast<int>(next() % static_cast<std::uint64_t>(n));
}

Noise::Noise(std::uint64_t seed) {
    Random random(seed);
    for (std::size_t i = 0; i < 256; ++i) {
        perm_[i] = static_cast<std::uint8_t>(i);
        values_[i] = random.uniform();
    }
    for (int i = 255; i > 0; --i)
        std::swap(perm_[static_cast<std::size_t>(i)],
                  perm_[static_cast<std::size_t>(random.below(i + 1))]);
    for (std::size_t i = 0; i < 256; ++i)
        perm_[i + 256] = perm_[i];
}

float Noise::lattice(int x, int y, int z) const {
    const auto p = [this](int i) { return static_cast<int>(perm_[static_cast<std::size_t>(i)]); };
    return values_[static_cast<std::size_t>(p(p(p(x & 255) + (y & 255)) + (z & 255)))];
}

namespace {

float fade(float t) {
    return t * t * t * (t * (t * 6.0f - 15.0f) + 10.0f);
}
float lerp(float a, float b, float t) {
    return a + (b - a) * t;
}

// Between octaves the pattern is turned about a tilted axis, so that no two octaves share their
// lattice lines.
Vec3 turn(Vec3 p) {
    return {0.80f * p.x - 0.36f * p.y + 0.48f * p.z, 0.60f * p.x + 0.48f * p.y - 0.64f * p.z,
            0.00f * p.x + 0.80f * p.y + 0.60f * p.z};
}

} // namespace

float Noise::at(Vec3 p) const {
    const float fx = std::floor(p.x);
    const float fy = std::floor(p.y);
    const float fz = std::floor(p.z);
    const int x = static_cast<int>(fx);
    const int y = static_cast<int>(fy);
    const int z = static_cast<int>(fz);
    const float u = fade(p.x - fx);
    const float v = fade(p.y - fy);
    const float w = fade(p.z - fz);
    const float x00 = lerp(lattice(x, y, z), lattice(x + 1, y, z), u);
    const float x10 = lerp(lattice(x, y + 1, z), lattice(x + 1, y + 1, z), u);
    const float x01 = lerp(lattice(x, y, z + 1), lattice(x + 1, y, z + 1), u);
    const float x11 = lerp(lattice(x, y + 1, z + 1), lattice(x + 1, y + 1, z + 1), u);
    return lerp(lerp(x00, x10, v), lerp(x01, x11, v), w);
}

float Noise::fractal(Vec3 p, int octaves, float gain) const {
    float sum = 0.0f;
    float weight = 0.0f;
    float amplitude = 1.0f;
    for (int i = 0; i < octaves; ++i) {
        sum += amplitude * (at(p) - 0.5f);
        weight += amplitude;
        amplitude *= gain;
        p = turn(p) * 2.03f + Vec3{17.1f, 5.3f, 11.7f};
    }
    // Octaves add up to a narrower spread than one alone; widen it back somewhat.
    return 0.5f + 1.6f * sum / weight;
}

float Noise::warped(Vec3 p, int octaves, float strength) const {
    const Vec3 push{fractal(p + Vec3{3.1f, 7.7f, 1.3f}, 4) - 0.5f,
                    fractal(p + Vec3{9.2f, 2.8f, 6.4f}, 4) - 0.5f,
                    fractal(p + Vec3{5.5f, 4.1f, 8.9f}, 4) - 0.5f};
    return fractal(p + push * strength, octaves);
}

} // namespace apsis::artgen
