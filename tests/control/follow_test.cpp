#include "control/play.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace apsis {
namespace {

using Placement = std::pair<Stellar Game::*, double>; // a body and its distance right of the craft

// The craft sits 1e12 m right of the Sun; every other body is parked far off unless a case places
// it near the craft. h is two fifths of the height of world in view.
TEST(FollowedBody, StrictlyNearestWinsWithinEachBodysLimits) {
    struct Case {
        int level;
        double h; // m
        std::vector<Placement> near;
        const char* followed;
        bool satelliteActive = true;
        bool stationActive = true;
    };
    const auto satellite = [](int level, double h, const char* followed, bool active = true) {
        return Case{level, h, {{&Game::earth, 1e7}, {&Game::satellite, 1e5}}, followed, active};
    };
    const auto station = [](int level, double h, const char* followed, bool active = true) {
        return Case{level, h, {{&Game::earth, 1e7}, {&Game::station, 1e5}}, followed, true, active};
    };
    const Case cases[] = {
        {1, 1e3, {{&Game::earth, 1e7}, {&Game::venus, 2e7}}, "Earth"},
        {1, 1e3, {{&Game::venus, 1e7}, {&Game::earth, -1e7}}, "Venus"}, // a tie keeps the first
        {1, 3.79e8, {{&Game::earth, 1e7}, {&Game::moon, 1e6}}, "The Moon"},
        {1, 3.8e8, {{&Game::earth, 1e7}, {&Game::moon, 1e6}}, "Earth"},
        {1, 1e3, {{&Game::earth, 1e7}, {&Game::asteroid, 1e5}}, "Asteroid"}, // even resting
        {1, 1e3, {}, "The Sun"},
        // Near the Sun, within the view's reach of it, the camera stays on the Sun.
        {1, 1.0001e12, {{&Game::earth, 1e7}}, "The Sun"},
        {1, 1.0e12, {{&Game::earth, 1e7}}, "Earth"},
        // Small bodies only within their level's reach.
        satellite(5, 4.2e7, "Satellite"),
        satellite(5, 42164000.0, "Earth"),
        satellite(5, 1e3, "Earth", false), // not taking part
        satellite(1, 1e3, "Earth"),
        station(6, 2.9e6, "Station"),
        station(6, 3.0e6, "Earth"),
        station(8, 1e3, "Earth", false),
        station(5, 1e3, "Earth"),
        // A station passed over leaves the comparison; a nearer later body still wins.
        {0, 1e3, {{&Game::station, 1e5}, {&Game::mars, 1e4}}, "Mars", false, true},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << k.followed << " level " << k.level << " h " << k.h);
        Controller c;
        play::toStillFlight(c, k.level, 20);
        Game& game = c.game;
        double parking = -1.0e12;
        for (Stellar* body : {&game.venus, &game.earth, &game.moon, &game.mars, &game.jupiter,
                              &game.satellite, &game.station, &game.asteroid}) {
            body->pos = Position(parking, 5.0e11, 0.0, 0.0);
            parking -= 1.0e10;
        }
        for (const auto& [body, dx] : k.near)
            (game.*body).pos = Position(1.0e12 + dx, 0.0, 0.0, 0.0);
        game.satellite.isActive = k.satelliteActive;
        game.station.isActive = k.stationActive;
        game.player.pos = Position(1.0e12, 0.0, 0.0, 0.0);
        c.drawView.viewScale = k.h / 0.4;
        RecordingCanvas square({512.0f, 512.0f}); // makes viewScaleH exactly viewScale
        CanvasFocus focus(square);
        c.drawView.initSizes();
        ASSERT_EQ(0.4 * c.drawView.viewScaleH, k.h);
        c.doFrame();
        EXPECT_STREQ(c.drawView.viewTarget.name, k.followed);
    }
}

} // namespace
} // namespace apsis
