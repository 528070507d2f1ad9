#pragma once

#include "noise.h"
#include "raster.h"

#include <functional>

namespace apsis::artgen {

// Each body drawn once, facing up (north at the top), into a square picture of size pixels, on a
// transparent background; the sheets turn it frame by frame.
Raster drawSun(int size);
Raster drawVenus(int size);
Raster drawEarth(int size);
Raster drawMoon(int size);
Raster drawMars(int size);
Raster drawJupiter(int size);
Raster drawAsteroid(int size);

// A globe filling a disc of radius (a fraction of half the picture) at the picture's centre, its
// north pole leaning towards the viewer by tilt radians. surface gives the colour at each point p
// of the unit sphere in the globe's own frame (y towards the north pole), with mu the cosine of
// the angle between the surface and the line of sight (1 at the disc's centre, 0 at the rim); the
// rim is smoothed over one pixel.
using Surface = std::function<Rgba(Vec3 p, float mu)>;
Raster drawGlobe(int size, float radius, float tilt, const Surface& surface);

// Colours along a scale: stops at rising positions, blended linearly between them.
struct Stop {
    float at;
    Rgba colour;
};

template <std::size_t N>
Rgba ramp(const Stop (&stops)[N], float t) {
    if (t <= stops[0].at)
        return stops[0].colour;
    for (std::size_t i = 1; i < N; ++i) {
        if (t <= stops[i].at)
            return mix(stops[i - 1].colour, stops[i].colour,
                       (t - stops[i - 1].at) / (stops[i].at - stops[i - 1].at));
    }
    return stops[N - 1].colour;
}

// Limb darkening: 1 at the centre of the disc (z = 1), falling towards the rim (z = 0).
float limb(float z, float strength);

} // namespace apsis::artgen
