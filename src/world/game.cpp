#include "world/game.h"

#include "physics/numeric.h"
#include "world/bodies.h"
#include "world/levels.h"

namespace apsis {
namespace {

constexpr int kSubSteps = 500;
// In level 4 the satellite rides on the Sun-Earth line at this fraction of Earth's place and
// velocity, just short of Earth (the Sun sits at rest at the origin).
constexpr double kLevel4Fraction = 0.9899706333;

} // namespace

Game::Game()
    : sun("The Sun", E(1.98, 30), E(13.9, 8), E(6.95, 8), "sun.jpg", 6, E(1.0, 5)),
      venus("Venus", E(4.83, 24), E(12.62, 6), E(6.31, 6), "venus.jpg", 8, E(-2.1, 7)),
      earth("Earth", E(5.98, 24), E(12.76, 6), E(6.38, 6), "earth.jpg", 8, 86164.0),
      moon("The Moon", E(7.34, 22), E(3.48, 6), E(1.74, 6), "moon.jpg", 8, E(2.36, 6)),
      mars("Mars", E(6.37, 23), E(6.86, 6), E(3.43, 6), "mars.jpg", 8, E(8.85, 4)),
      jupiter("Jupiter", E(1.9, 27), E(14.36, 7), E(7.18, 7), "jupiter.jpg", 8, E(3.54, 4)),
      satellite("Satellite", 0.0, 50.0, 2.0, "satellite.gif", 1),
      station("Station", 0.0, 120.0, 10.0, "station.gif", 1),
      asteroid("Asteroid", 0.0, 300.0, 150.0, "asteroid.jpg", 8, 3600.0),
      player("You", 0.0, 100.0, 2.0, "ship.gif", 8) {}

void Game::doFrame(int level) {
    doFrame(level, kSubSteps);
}

void Game::doFrame(int level, int subSteps) {
    const double dt = timeStep / subSteps;
    const bool satelliteRidesEarth = levelAt(level).satelliteRidesEarth;
    for (int step = 0; step < subSteps; ++step) {
        // Planets: each pulled by the Sun alone; the Moon by the Sun and Earth. Every pull of a
        // sub-step sees the massive bodies where they stood at its start: they drift last.
        venus.gravTo(sun, dt);
        earth.gravTo(sun, dt);
        moon.gravTo(sun, dt);
        moon.gravTo(earth, dt);
        mars.gravTo(sun, dt);
        jupiter.gravTo(sun, dt);

        // Small bodies: pulled, then drifting, before the planets move.
        if (satellite.isActive) {
            if (!satelliteRidesEarth) {
                satellite.gravTo(sun, dt);
                satellite.gravTo(earth, dt);
                satellite.gravTo(moon, dt);
            } else {
                // Earth's place from the start of the sub-step, its velocity already pulled.
                satellite.pos.x = kLevel4Fraction * earth.pos.x;
                satellite.pos.y = kLevel4Fraction * earth.pos.y;
                satellite.pos.vx = kLevel4Fraction * earth.pos.vx;
                satellite.pos.vy = kLevel4Fraction * earth.pos.vy;
            }
            satellite.move(dt);
        }
        if (station.isActive) {
            station.gravTo(sun, dt);
            station.gravTo(earth, dt);
            station.gravTo(moon, dt);
            station.move(dt);
        }
        if (asteroid.isActive) {
            asteroid.gravTo(sun, dt);
            asteroid.move(dt);
        }

        // Ship: pulled by all six massive bodies.
        for (const BodyMember body : kMassiveBodies)
            player.gravTo(this->*body, dt);

        // The massive bodies drift.
        for (const BodyMember body : kMassiveBodies)
            (this->*body).move(dt);

        // The ship turns, burns and drifts last; a hold sets the heading it turns to first.
        if (hold.kind != HoldKind::Off)
            steerByHold(*this);
        player.move(dt);
    }
    elapsedTime = elapsedTime + timeStep;
}

} // namespace apsis
