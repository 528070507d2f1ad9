#include "physics/numeric.h"
#include "world/game.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace apsis {
namespace {

// The numbers of each level before the difficulty scales them.
struct LevelValues {
    double acceleration; // m/s^2 at full throttle
    double fuel;         // m/s, also the full tank
    double throttle;     // fraction
    double timeStep;     // s per world step
    double timeLimit;    // s; 0 means none
};

constexpr std::array<LevelValues, 9> kLevels{{
    {1.0, 31536000.0, 0.2, 150.0, 0.0},   // 0: practice; the tank is a year of seconds
    {0.2, 4320.0, 1.0, 150.0, 0.0},       // 1: low orbit about Earth
    {0.2, 6480.0, 1.0, 5.0, 0.0},         // 2: geostationary band
    {0.2, 17280.0, 1.0, 5.0, 0.0},        // 3: orbit the Moon
    {0.2, 16200.0, 1.0, 5.0, 1728000.0},  // 4: reach the satellite on the Sun-Earth line
    {0.1, 4320.0, 1.0, 300.0, 432000.0},  // 5: catch the satellite across the orbit
    {0.2, 17280.0, 1.0, 5.0, 864000.0},   // 6: dock at the station around the Moon
    {0.2, 32000.0, 1.0, 1.0 / 3.0, 0.0},  // 7: orbit Mars
    {0.1, 216000.0, 1.0, 1.0 / 3.0, 0.0}, // 8: meet the asteroid, then dock
}};

constexpr double kLowOrbit = 6678000.0;       // m from Earth's centre
constexpr double kHighOrbit = 26378000.0;     // m
constexpr double kGeostationary = 42164000.0; // m
constexpr double kStationOrbit = 7378000.0;   // m
// Level 4's satellite starts on the Sun-Earth line at this fraction of Earth's place, with this
// fraction of its velocity, so that it keeps Earth's angular speed.
constexpr double kLevel4Place = 0.990011198;
constexpr double kLevel4Velocity = 0.9900111977;

} // namespace

double difficultyFactor(int difficulty) {
    switch (difficulty) {
    case 1:
        return 1.25;
    case 3:
        return 0.8;
    default:
        return 1.0;
    }
}

void Game::setLevel(int level) {
    level = std::clamp(level, 0, 8);
    const LevelValues& values = kLevels[static_cast<std::size_t>(level)];

    player.isTurningLeft = false;
    player.isTurningRight = false;
    player.isAccelerating = false;
    player.throttle = 1.0;
    elapsedTime = 0;

    // The planets at new random angles. The Moon comes after Earth: it takes Earth's new place
    // and velocity.
    venus.putInOrbitAround(sun, E(1.08, 11));
    earth.putInOrbitAround(sun, E(1.49, 11));
    moon.putInOrbitAround(earth, E(3.8, 8));
    mars.putInOrbitAround(sun, E(2.28, 11));
    jupiter.putInOrbitAround(sun, E(7.78, 11));

    // The optional bodies sit out unless the level places them; an idle one keeps its last state.
    satellite.isActive = false;
    station.isActive = false;
    asteroid.isActive = false;

    // In every level the optional bodies are placed before the ship.
    switch (level) {
    case 0:
        station.putInOrbitAround(earth, kGeostationary);
        player.putInOrbitAround(earth, kHighOrbit);
        break;
    case 1:
        player.putInOrbitAround(earth, kHighOrbit);
        break;
    case 2:
    case 3:
        player.putInOrbitAround(earth, kLowOrbit);
        break;
    case 4:
        satellite.isActive = true;
        satellite.pos.x = earth.pos.x * kLevel4Place;
        satellite.pos.y = earth.pos.y * kLevel4Place;
        satellite.pos.vx = earth.pos.vx * kLevel4Velocity;
        satellite.pos.vy = earth.pos.vy * kLevel4Velocity;
        satellite.mainInfluence = nullptr;
        player.putInOrbitAround(earth, kLowOrbit);
        break;
    case 5: {
        // Satellite and ship share one orbit, on opposite sides of Earth.
        const double a = randomAngle();
        satellite.putInOrbitAround(earth, kGeostationary, a);
        player.putInOrbitAround(earth, kGeostationary, a + kPi);
        break;
    }
    case 6:
        station.putInOrbitAround(moon, E(3, 6));
        player.putInOrbitAround(earth, kLowOrbit);
        break;
    case 7: {
        // The ship starts docked at the station.
        const double a = randomAngle();
        station.putInOrbitAround(earth, kStationOrbit, a);
        player.putInOrbitAround(earth, kStationOrbit, a);
        break;
    }
    case 8: {
        // The asteroid starts far out opposite the direction a, keeps a third of its circular
        // speed and falls towards the Sun at 10 km/s.
        const double a = randomAngle();
        asteroid.putInOrbitAround(sun, E(2, 12), a + kPi);
        asteroid.pos.vx = asteroid.pos.vx / 3 + E(1, 4) * std::cos(a);
        asteroid.pos.vy = asteroid.pos.vy / 3 + E(1, 4) * std::sin(a);
        const double b = randomAngle();
        station.putInOrbitAround(earth, kGeostationary, b);
        player.putInOrbitAround(earth, kGeostationary, b);
        break;
    }
    default:
        break;
    }

    player.acceleration = values.acceleration;
    player.fuel = values.fuel;
    player.maxFuel = values.fuel;
    player.throttle = values.throttle;
    timeStep = values.timeStep;
    timeLimit = values.timeLimit;

    // The difficulty last: the engine by f, the tank by f squared, a time limit by f.
    const double f = difficultyFactor(difficulty);
    player.acceleration = player.acceleration * f;
    player.fuel = f * f * player.fuel;
    player.maxFuel = f * f * player.maxFuel;
    if (timeLimit != 0)
        timeLimit = timeLimit * f;
}

} // namespace apsis
