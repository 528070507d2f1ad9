#include "world/levels.h"

#include "physics/numeric.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace apsis {
namespace {

constexpr double kLowOrbit = 6678000.0;       // m from Earth's centre
constexpr double kHighOrbit = 26378000.0;     // m
constexpr double kGeostationary = 42164000.0; // m
constexpr double kStationOrbit = 7378000.0;   // m
// Level 4's satellite starts on the Sun-Earth line at this fraction of Earth's place, with this
// fraction of its velocity, so that it keeps Earth's angular speed.
constexpr double kLevel4Place = 0.990011198;
constexpr double kLevel4Velocity = 0.9900111977;

// The set-ups. In every level the optional bodies are placed before the ship.

void practice(Game& g) {
    g.station.putInOrbitAround(g.earth, kGeostationary);
    g.player.putInOrbitAround(g.earth, kHighOrbit);
}

void highOrbit(Game& g) {
    g.player.putInOrbitAround(g.earth, kHighOrbit);
}

void lowOrbit(Game& g) {
    g.player.putInOrbitAround(g.earth, kLowOrbit);
}

void satelliteOnSunEarthLine(Game& g) {
    g.satellite.isActive = true;
    g.satellite.pos.x = g.earth.pos.x * kLevel4Place;
    g.satellite.pos.y = g.earth.pos.y * kLevel4Place;
    g.satellite.pos.vx = g.earth.pos.vx * kLevel4Velocity;
    g.satellite.pos.vy = g.earth.pos.vy * kLevel4Velocity;
    g.satellite.mainInfluence = nullptr;
    g.player.putInOrbitAround(g.earth, kLowOrbit);
}

// Satellite and ship share one orbit, on opposite sides of Earth.
void satelliteAcrossTheOrbit(Game& g) {
    const double a = randomAngle();
    g.satellite.putInOrbitAround(g.earth, kGeostationary, a);
    g.player.putInOrbitAround(g.earth, kGeostationary, a + kPi);
}

void stationAroundTheMoon(Game& g) {
    g.station.putInOrbitAround(g.moon, E(3, 6));
    g.player.putInOrbitAround(g.earth, kLowOrbit);
}

// The ship starts docked at the station.
void dockedNearEarth(Game& g) {
    const double a = randomAngle();
    g.station.putInOrbitAround(g.earth, kStationOrbit, a);
    g.player.putInOrbitAround(g.earth, kStationOrbit, a);
}

// The asteroid starts far out opposite the direction a, keeps a third of its circular speed and
// falls towards the Sun at 10 km/s; the ship starts docked at the geostationary station.
void incomingAsteroid(Game& g) {
    const double a = randomAngle();
    g.asteroid.putInOrbitAround(g.sun, E(2, 12), a + kPi);
    g.asteroid.pos.vx = g.asteroid.pos.vx / 3 + E(1, 4) * std::cos(a);
    g.asteroid.pos.vy = g.asteroid.pos.vy / 3 + E(1, 4) * std::sin(a);
    const double b = randomAngle();
    g.station.putInOrbitAround(g.earth, kGeostationary, b);
    g.player.putInOrbitAround(g.earth, kGeostationary, b);
}

// The factor by which a difficulty scales the craft's engine, the square of its tank, and the
// time limit: 1.25 for Easy, 1.0 for Medium and anything unknown, 0.8 for Hard.
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

} // namespace

// The levels about Earth open on Earth, wide enough for the craft's orbit; levels 7 and 8 open
// close on the station the craft starts beside. The practice tank is a year of seconds.
// clang-format off
const std::array<Level, kLevelCount> kLevels{{
    // 0: practice
    {.place = practice, .acceleration = 1.0, .fuel = 31536000.0, .throttle = 0.2,
     .timeStep = 150.0,
     .viewScale = E(120, 6), .opensOn = &Game::earth,
     .followSatellite = 42164000.0, .followStation = 42164000.0},
    // 1: low orbit about Earth, 6 hours
    {.place = highOrbit, .acceleration = 0.2, .fuel = 4320.0, .timeStep = 150.0,
     .viewScale = E(120, 6), .opensOn = &Game::earth,
     .zoneBody = &Game::earth, .zoneOuter = 9378000.0, .holdTime = 21600.0},
    // 2: the geostationary band, 4 days
    {.place = lowOrbit, .acceleration = 0.2, .fuel = 6480.0, .timeStep = 5.0,
     .viewScale = E(25, 6), .opensOn = &Game::earth,
     .zoneBody = &Game::earth, .zoneInner = 36380000.0, .zoneOuter = 46380000.0,
     .holdTime = 345600.0},
    // 3: around the Moon, 1 day
    {.place = lowOrbit, .acceleration = 0.2, .fuel = 17280.0, .timeStep = 5.0,
     .viewScale = E(25, 6), .opensOn = &Game::earth,
     .zoneBody = &Game::moon, .zoneOuter = 3740000.0, .holdTime = 86400.0},
    // 4: reach the satellite between Earth and the Sun
    {.place = satelliteOnSunEarthLine, .acceleration = 0.2, .fuel = 16200.0, .timeStep = 5.0,
     .timeLimit = 1728000.0, .satelliteRidesEarth = true,
     .viewScale = E(25, 6), .opensOn = &Game::earth, .followSatellite = 1488331500.0,
     .satelliteTouch = Touch::Dock},
    // 5: catch the satellite across the orbit
    {.place = satelliteAcrossTheOrbit, .acceleration = 0.1, .fuel = 4320.0, .timeStep = 300.0,
     .timeLimit = 432000.0,
     .viewScale = E(120, 6), .opensOn = &Game::earth, .followSatellite = 42164000.0,
     .satelliteTouch = Touch::Dock},
    // 6: dock at the station around the Moon
    {.place = stationAroundTheMoon, .acceleration = 0.2, .fuel = 17280.0, .timeStep = 5.0,
     .timeLimit = 864000.0,
     .viewScale = E(25, 6), .opensOn = &Game::earth, .followStation = 3000000.0,
     .stationTouch = Touch::Dock},
    // 7: orbit Mars for 1 day, setting out from the station
    {.place = dockedNearEarth, .acceleration = 0.2, .fuel = 32000.0, .timeStep = 1.0 / 3.0,
     .viewScale = 200.0, .opensOn = &Game::station, .followStation = 7378000.0,
     .zoneBody = &Game::mars, .zoneOuter = 3930000.0, .holdTime = 86400.0,
     .stationTouch = Touch::Harmless},
    // 8: meet the asteroid, then dock back at the station (no time limit)
    {.place = incomingAsteroid, .acceleration = 0.1, .fuel = 216000.0, .timeStep = 1.0 / 3.0,
     .viewScale = 200.0, .opensOn = &Game::station, .followStation = 42164000.0,
     .stationTouch = Touch::Dock, .passAsteroidFirst = true},
}};
// clang-format on

const Level& levelAt(int n) {
    return kLevels[static_cast<std::size_t>(std::clamp(n, 0, kLevelCount - 1))];
}

void Game::setLevel(int n) {
    const Level& level = levelAt(n);

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
    level.place(*this);

    player.acceleration = level.acceleration;
    player.fuel = level.fuel;
    player.maxFuel = level.fuel;
    player.throttle = level.throttle;
    timeStep = level.timeStep;
    timeLimit = level.timeLimit;

    // The difficulty last: the engine by f, the tank by f squared, a time limit by f.
    const double f = difficultyFactor(difficulty);
    player.acceleration = player.acceleration * f;
    player.fuel = f * f * player.fuel;
    player.maxFuel = f * f * player.maxFuel;
    if (timeLimit != 0)
        timeLimit = timeLimit * f;
}

} // namespace apsis
