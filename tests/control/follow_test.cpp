#include "control/play.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace apsis {
namespace {

using Placement = std::pair<Stellar Game::*, double>; // a body and its distance right of the craft

// The craft 1e12 m right of the Sun; every other body parked far out on the other side unless a
// case places it near the craft.
constexpr double kShipX = 1.0e12;

struct Case {
    int level;
    double h; // m: two fifths of the height of world in view
    bool satelliteActive;
    bool stationActive;
    std::vector<Placement> near;
    const char* followed;
};

void checkFollowed(const Case& k) {
    play::seed(20);
    Controller c;
    play::toFlight(c, k.level);
    Game& game = c.game;
    Stellar Game::*const bodies[] = {&Game::venus,   &Game::earth,   &Game::moon,
                                     &Game::mars,    &Game::jupiter, &Game::satellite,
                                     &Game::station, &Game::asteroid};
    double parking = -1.0e12;
    for (Stellar Game::*body : bodies) {
        (game.*body).pos = Position(parking, 5.0e11, 0.0, 0.0);
        parking -= 1.0e10;
    }
    for (const Placement& p : k.near)
        (game.*p.first).pos = Position(kShipX + p.second, 0.0, 0.0, 0.0);
    game.satellite.isActive = k.satelliteActive;
    game.station.isActive = k.stationActive;
    game.player.pos = Position(kShipX, 0.0, 0.0, 0.0);

    c.drawView.viewScale = k.h / 0.4;
    play::redraw(c); // a square view: viewScaleH is viewScale
    ASSERT_EQ(0.4 * c.drawView.viewScaleH, k.h);
    c.doFrame();
    EXPECT_STREQ(c.drawView.viewTarget.name, k.followed);
    EXPECT_EQ(game.player.mainInfluence, &c.drawView.viewTarget);
}

TEST(FollowedBody, TheStrictlyNearestPlanetOrMoonWins) {
    const Case cases[] = {
        {1, 1e3, false, false, {{&Game::earth, 1e7}, {&Game::venus, 2e7}}, "Earth"},
        // A tie keeps the body chosen first.
        {1, 1e3, false, false, {{&Game::venus, 1e7}, {&Game::earth, -1e7}}, "Venus"},
        {1, 1e3, false, false, {{&Game::earth, 1e7}, {&Game::mars, -1e7}}, "Earth"},
        {1, 1e3, false, false, {{&Game::earth, 1e7}, {&Game::jupiter, 9e6}}, "Jupiter"},
        // The Moon only while the view is narrower than its orbit.
        {1, 3.79e8, false, false, {{&Game::earth, 1e7}, {&Game::moon, 1e6}}, "The Moon"},
        {1, 3.8e8, false, false, {{&Game::earth, 1e7}, {&Game::moon, 1e6}}, "Earth"},
        // The asteroid counts even where it takes no part.
        {1, 1e3, false, false, {{&Game::earth, 1e7}, {&Game::asteroid, 1e5}}, "Asteroid"},
        // Nothing near: the Sun, the first candidate, stays.
        {1, 1e3, false, false, {}, "The Sun"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.followed << " h " << k.h);
        checkFollowed(k);
    }
}

TEST(FollowedBody, SmallBodiesOnlyWithinTheirLevelsReach) {
    const auto satellite = [](int level, double h, bool active, const char* followed) {
        return Case{level,   h, active, false, {{&Game::earth, 1e7}, {&Game::satellite, 1e5}},
                    followed};
    };
    const auto station = [](int level, double h, bool active, const char* followed) {
        return Case{level,   h, false, active, {{&Game::earth, 1e7}, {&Game::station, 1e5}},
                    followed};
    };
    const Case cases[] = {
        satellite(4, 1.4e9, true, "Satellite"),
        satellite(4, 1488331500.0, true, "Earth"),
        satellite(5, 4.2e7, true, "Satellite"),
        satellite(5, 42164000.0, true, "Earth"),
        satellite(0, 4.2e7, true, "Satellite"),
        satellite(5, 1e3, false, "Earth"), // not taking part
        satellite(1, 1e3, true, "Earth"),  // never followed in this level
        satellite(6, 1e3, true, "Earth"),
        station(0, 4.2e7, true, "Station"),
        station(0, 42164000.0, true, "Earth"),
        station(6, 2.9e6, true, "Station"),
        station(6, 3.0e6, true, "Earth"),
        station(7, 7.3e6, true, "Station"),
        station(7, 7378000.0, true, "Earth"),
        station(8, 4.2e7, true, "Station"),
        station(8, 1e3, false, "Earth"),
        station(2, 1e3, true, "Earth"),
        station(5, 1e3, true, "Earth"),
        // A station passed over leaves the comparison with Earth; a nearer later body still wins.
        Case{0, 1e3, false, true, {{&Game::station, 1e5}, {&Game::mars, 1e4}}, "Mars"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << "level " << k.level << " h " << k.h);
        checkFollowed(k);
    }
}

TEST(FollowedBody, TheSunWhenTheCraftIsWithinReachOfIt) {
    // The craft is 1e12 m from the Sun.
    const Case cases[] = {
        {1, 1.0001e12, false, false, {{&Game::earth, 1e7}}, "The Sun"},
        {1, 1.0e12, false, false, {{&Game::earth, 1e7}}, "Earth"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.h);
        checkFollowed(k);
    }
}

} // namespace
} // namespace apsis
