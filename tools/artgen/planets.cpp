#include "bodies.h"

#include <algorithm>
#include <cmath>

namespace apsis::artgen {

// Venus: a pale yellow ball of cloud, streaked along its lines of latitude.
Raster drawVenus(int size) {
    const Noise clouds(201);
    return drawGlobe(size, 0.985f, 0.2f, [&](Vec3 p, float mu) {
        const float streaks = clouds.warped({p.x * 2.0f, p.y * 7.0f, p.z * 2.0f}, 6, 1.4f);
        const float soft = clouds.fractal(p * 3.0f + Vec3{4.0f, 1.0f, 2.0f}, 4);
        const Stop palette[] = {{0.2f, opaque(0.82f, 0.72f, 0.48f)},
                                {0.5f, opaque(0.93f, 0.87f, 0.66f)},
                                {0.8f, opaque(1.00f, 0.97f, 0.86f)}};
        Rgba c = ramp(palette, 0.6f * streaks + 0.4f * soft);
        // Thick haze: a softer limb than a rocky world's, cream-coloured at the rim.
        c = shaded(c, limb(mu, 0.45f));
        return mix(c, opaque(0.95f, 0.88f, 0.66f), 0.35f * std::pow(1.0f - mu, 3.0f));
    });
}

// Earth: blue oceans, green and sandy continents, white polar ice and swirling clouds under a thin
// blue rim of air.
Raster drawEarth(int size) {
    const Noise land(301);
    const Noise climate(302);
    const Noise weather(303);
    constexpr float kCoast = 0.56f;
    return drawGlobe(size, 0.985f, 0.4f, [&](Vec3 p, float mu) {
        const float height = land.warped(p * 1.6f + Vec3{2.0f, 0.0f, 5.0f}, 8, 0.8f);
        const float latitude = std::abs(p.y);
        Rgba c;
        if (height < kCoast) {
            const Stop sea[] = {{kCoast - 0.25f, opaque(0.02f, 0.08f, 0.30f)},
                                {kCoast - 0.05f, opaque(0.03f, 0.17f, 0.46f)},
                                {kCoast, opaque(0.08f, 0.34f, 0.60f)}};
            c = ramp(sea, height);
        } else {
            // Deserts lie in the dry belts either side of the tropics.
            const float dry =
                climate.fractal(p * 2.5f, 5) + 0.3f * (1.0f - std::abs(latitude - 0.35f) * 4.0f);
            const Stop ground[] = {{0.50f, opaque(0.12f, 0.34f, 0.10f)},
                                   {0.66f, opaque(0.30f, 0.44f, 0.16f)},
                                   {0.78f, opaque(0.70f, 0.60f, 0.38f)},
                                   {0.95f, opaque(0.84f, 0.74f, 0.52f)}};
            c = ramp(ground, dry);
            // Mountains: higher ground browner.
            c = mix(c, opaque(0.40f, 0.34f, 0.24f),
                    0.6f * smoothstep(kCoast + 0.14f, kCoast + 0.3f, height));
        }
        const float edge = 0.08f * (climate.fractal(p * 5.0f, 4) - 0.5f);
        c = mix(c, opaque(0.92f, 0.95f, 0.98f), smoothstep(0.0f, 0.03f, latitude - 0.9f + edge));
        const float cloud = weather.warped(p * 2.6f, 7, 1.8f);
        c = mix(c, opaque(0.97f, 0.98f, 1.0f), 0.92f * smoothstep(0.54f, 0.76f, cloud));
        c = shaded(c, limb(mu, 0.5f));
        return mix(c, opaque(0.45f, 0.68f, 1.0f), 0.7f * std::pow(1.0f - mu, 4.0f));
    });
}

// Mars: rust-red dust with dark markings, paler deserts and a white cap at the north pole.
Raster drawMars(int size) {
    const Noise albedo(401);
    const Noise dust(402);
    const Noise cap(403);
    return drawGlobe(size, 0.985f, 0.4f, [&](Vec3 p, float mu) {
        const float dark = albedo.warped(p * 1.8f + Vec3{1.0f, 8.0f, 3.0f}, 7, 0.7f);
        const float pale = dust.fractal(p * 3.0f, 6);
        const Stop palette[] = {{0.30f, opaque(0.88f, 0.58f, 0.36f)},
                                {0.48f, opaque(0.80f, 0.40f, 0.20f)},
                                {0.62f, opaque(0.70f, 0.32f, 0.16f)},
                                {0.74f, opaque(0.42f, 0.21f, 0.12f)}};
        Rgba c = ramp(palette, dark + 0.2f * (pale - 0.5f));
        const float edge = 0.06f * (cap.fractal(p * 6.0f, 4) - 0.5f);
        const float north = smoothstep(0.0f, 0.02f, p.y - 0.88f + edge);
        const float south = smoothstep(0.0f, 0.02f, -p.y - 0.95f + edge);
        c = mix(c, opaque(0.97f, 0.95f, 0.93f), std::max(north, south));
        c = shaded(c, limb(mu, 0.5f));
        return mix(c, opaque(0.95f, 0.65f, 0.5f), 0.35f * std::pow(1.0f - mu, 4.0f));
    });
}

// Jupiter: cream zones and brown belts, ragged at their edges, with the great red spot below the
// equator.
Raster drawJupiter(int size) {
    const Noise turbulence(501);
    const Noise detail(502);
    const Rgba zone = opaque(0.94f, 0.89f, 0.78f);
    const Rgba belt = opaque(0.66f, 0.44f, 0.30f);
    const Rgba pole = opaque(0.56f, 0.54f, 0.53f);
    // Colour by latitude, from the south pole (0) to the north pole (1).
    const Stop bands[] = {{0.00f, pole},
                          {0.12f, shaded(pole, 1.1f)},
                          {0.16f, mix(zone, belt, 0.3f)},
                          {0.19f, mix(zone, belt, 0.7f)},
                          {0.23f, zone},
                          {0.27f, mix(zone, belt, 0.4f)},
                          {0.30f, zone},
                          {0.34f, zone},
                          {0.37f, belt},
                          {0.42f, shaded(belt, 0.9f)},
                          {0.45f, zone},
                          {0.53f, shaded(zone, 1.03f)},
                          {0.56f, belt},
                          {0.62f, shaded(belt, 0.92f)},
                          {0.65f, zone},
                          {0.70f, mix(zone, belt, 0.15f)},
                          {0.73f, mix(zone, belt, 0.6f)},
                          {0.76f, zone},
                          {0.80f, mix(zone, belt, 0.5f)},
                          {0.84f, mix(zone, pole, 0.5f)},
                          {0.90f, shaded(pole, 1.1f)},
                          {1.00f, pole}};
    // The spot, by longitude and latitude in radians.
    constexpr float kSpotLongitude = 0.45f;
    constexpr float kSpotLatitude = -0.38f;
    return drawGlobe(size, 0.985f, 0.12f, [&](Vec3 p, float mu) {
        const float longitude = std::atan2(p.x, p.z);
        const float latitude = std::asin(std::clamp(p.y, -1.0f, 1.0f));
        // Bands bend and fray: latitude is pushed by noise stretched along the bands.
        const Vec3 q{p.x * 1.5f, p.y * 12.0f, p.z * 1.5f};
        float t = 0.5f + latitude / 3.14159265f;
        t += 0.025f * (turbulence.warped(q, 6, 1.8f) - 0.5f);
        const float dx = (longitude - kSpotLongitude) / 0.30f;
        const float dy = (latitude - kSpotLatitude) / 0.14f;
        const float spot = std::sqrt(dx * dx + dy * dy);
        // Around the spot the bands swirl aside.
        t += 0.03f * std::exp(-spot * spot) * (dy >= 0 ? 1.0f : -1.0f);
        Rgba c = ramp(bands, t);
        c = shaded(c, 0.94f + 0.12f * detail.fractal(q * 2.0f, 4));
        const Rgba red = opaque(0.80f, 0.40f, 0.26f);
        const float rim = smoothstep(0.8f, 1.0f, spot) * (1.0f - smoothstep(1.0f, 1.3f, spot));
        c = mix(c, shaded(zone, 1.02f), 0.7f * rim);
        c = mix(c, shaded(red, 0.9f + 0.2f * detail.fractal(p * 30.0f, 3)),
                1.0f - smoothstep(0.7f, 1.0f, spot));
        return shaded(c, limb(mu, 0.5f));
    });
}

} // namespace apsis::artgen
