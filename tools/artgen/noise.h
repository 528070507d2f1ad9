#pragma once

#include <array>
#include <cstdint>

namespace apsis::artgen {

// A small pseudo-random generator of our own (SplitMix64), so that every run of the generator,
// on every machine, draws the same pictures from the same seed.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next();
    // Uniform in [0, 1).
    float uniform();
    float uniform(float low, float high) { return low + (high - low) * uniform(); }
    // Uniform over 0 .. n - 1.
    int below(int n);

  private:
    std::uint64_t state_;
};

// A point or direction in space; on a globe, x runs to the right, y to the north (up the
// picture) and z towards the viewer.
struct Vec3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator*(Vec3 a, float k) {
    return {a.x * k, a.y * k, a.z * k};
}
inline float dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

// Smooth value noise in three dimensions: random values on the integer lattice, blended with a
// quintic curve. Values lie in 0..1.
class Noise {
  public:
    explicit Noise(std::uint64_t seed);
    float at(Vec3 p) const;
    // Fractal sum of octaves, each twice as fine and gain times as strong as the one before and
    // turned a little, so that the lattice never shows. Normalised to 0..1 with mean 0.5.
    float fractal(Vec3 p, int octaves, float gain = 0.5f) const;
    // The fractal sum taken at p pushed aside by other fractal sums: swirls and streaks.
    float warped(Vec3 p, int octaves, float strength) const;

  private:
    float lattice(int x, int y, int z) const;
    std::array<std::uint8_t, 512> perm_{};
    std::array<float, 256> values_{};
};

} // namespace apsis::artgen
