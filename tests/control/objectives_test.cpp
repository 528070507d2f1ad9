#include "control/play.h"

#include <gtest/gtest.h>

namespace apsis {
namespace {

// A place far from every body the level set-up scatters, with room for exact small offsets.
constexpr double kSpotX = 1.5e11;

// Puts body at the spot, at rest, and the craft dx to the right of its centre moving right at
// speed.
void placeBeside(Game& game, Stellar& body, double dx, double speed = 0.0) {
    body.pos = Position(kSpotX, 0.0, 0.0, 0.0);
    game.player.pos = Position(kSpotX + dx, 0.0, speed, 0.0);
}

// Flies level with the seed's layout and the craft placed beside one of its bodies.
Stellar& flyBeside(Controller& c, int level, unsigned seed, Stellar Game::*body, double dx,
                   double speed = 0.0) {
    flySeeded(c, level, seed);
    placeBeside(c.game, c.game.*body, dx, speed);
    return c.game.*body;
}

TEST(Objectives, HoldingTheOrbitCompletesWhenTheCountFallsBelowZeroInTime) {
    Controller c;
    flySeeded(c, 1, 30); // 150 s per tick, hold 21600 s within 9378000 m of Earth
    c.game.player.putInOrbitAround(c.game.earth, 7.0e6);
    c.doFrame(); // found in the zone: the count starts, full
    EXPECT_EQ(c.countDownTime, 21600.0);
    play::ticks(c, 144); // 144 decrements reach exactly 0, which is not yet below it
    EXPECT_EQ(c.mode, MODE_PLAY);
    c.doFrame();
    EXPECT_EQ(c.mode, MODE_LEVEL_COMPLETE);

    // Late, at the limit itself, the count goes on below zero and completes nothing.
    Controller d;
    flyBeside(d, 3, 31, &Game::moon, 2.0e6);
    d.game.timeLimit = 1000.0;
    d.game.elapsedTime = 1000.0;
    d.isCountingDown = true;
    d.countDownTime = 10.0;
    d.game.timeStep = 60.0;
    d.checkObjectives();
    EXPECT_EQ(d.countDownTime, -50.0);
    EXPECT_EQ(d.mode, MODE_PLAY);
}

TEST(Objectives, ZonesAreOpenAtBothEdgesAndEachEntryStartsTheFullCount) {
    struct Case {
        int level;
        Stellar Game::*body;
        double distance; // m from the body's centre
        double holdTime; // s; 0 for outside
    };
    const Case cases[] = {
        {2, &Game::earth, 36380000.0, 0.0},   {2, &Game::earth, 36380001.0, 345600.0},
        {2, &Game::earth, 46380000.0, 0.0},   {3, &Game::moon, 3739999.0, 86400.0},
        {7, &Game::mars, 3929999.0, 86400.0}, {4, &Game::earth, 7000000.0, 0.0}, // 4: no zone
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << "level " << k.level << " at " << k.distance);
        Controller c;
        flyBeside(c, k.level, 32, k.body, k.distance);
        c.countDownTime = 10.0;
        c.checkObjectives();
        EXPECT_EQ(c.isCountingDown, k.holdTime > 0.0);
        if (k.holdTime == 0.0)
            continue;
        EXPECT_EQ(c.countDownTime, k.holdTime);
        // Out and back in: the next hold starts from the full time again.
        c.countDownTime = 10.0;
        c.game.player.pos.x = kSpotX + 1e9;
        c.checkObjectives();
        EXPECT_FALSE(c.isCountingDown);
        c.game.player.pos.x = kSpotX + k.distance;
        c.checkObjectives();
        EXPECT_EQ(c.countDownTime, k.holdTime);
    }
}

TEST(Objectives, TouchingTheSatelliteOrTheStationByLevel) {
    enum When { InTime, AtLimit, LongAfter };
    struct Case {
        int level;
        Stellar Game::*body;
        double speed; // m/s relative to the body
        MODE expected;
        When when = InTime;
        bool passedAsteroid = false;
        double gap = 1.0; // m between the centres
        bool active = true;
    };
    const auto sat = &Game::satellite;
    const auto sta = &Game::station;
    const Case cases[] = {
        {4, sat, 0.099, MODE_LEVEL_COMPLETE},
        {4, sat, 0.1, MODE_COLLISION_FADE},
        {4, sat, 0.05, MODE_RESTART_FADE, AtLimit},           // reaching the limit is already late
        {4, sat, 0.0, MODE_PLAY, InTime, false, 4.0},         // the radii only touch
        {4, sat, 0.05, MODE_PLAY, InTime, false, 1.0, false}, // not taking part
        {5, sat, 0.05, MODE_LEVEL_COMPLETE},
        {6, sta, 0.2, MODE_COLLISION_FADE},
        {0, sta, 0.0, MODE_COLLISION_FADE},
        {8, sta, 0.2, MODE_COLLISION_FADE, InTime, true},
        {8, sta, 0.05, MODE_LEVEL_COMPLETE, LongAfter, true}, // no time limit
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(testing::Message() << "level " << k.level << " speed " << k.speed);
        Controller c;
        flyBeside(c, k.level, 34, k.body, k.gap, k.speed).isActive = k.active;
        c.isPartialObjectiveDone = k.passedAsteroid;
        const double limit = c.game.timeLimit;
        c.game.elapsedTime = k.when == InTime ? limit - 1.0 : k.when == AtLimit ? limit : 1e12;
        c.checkObjectives();
        EXPECT_EQ(c.mode, k.expected);
        EXPECT_EQ(c.game.running, k.expected == MODE_PLAY);
    }
}

// Only the body's own radius counts, and the asteroid, taking no part in level 1, is still solid.
TEST(Objectives, BodiesCrashTheCraftByTheirOwnRadiusAlone) {
    for (Stellar Game::*member : {&Game::earth, &Game::moon, &Game::venus, &Game::mars,
                                  &Game::jupiter, &Game::sun, &Game::asteroid}) {
        for (const double beyondRadius : {-1.0, 1.0}) {
            Controller c;
            flySeeded(c, 1, 35);
            Stellar& body = c.game.*member;
            placeBeside(c.game, body, body.cRadius + beyondRadius);
            c.checkObjectives();
            EXPECT_EQ(c.mode, beyondRadius < 0 ? MODE_COLLISION_FADE : MODE_PLAY)
                << body.name << " " << beyondRadius;
        }
    }
}

TEST(Objectives, TheLastRuleOfTheTickDecides) {
    // The count ends as the craft hits Earth: the level is complete.
    Controller c;
    flyBeside(c, 1, 36, &Game::earth, 1.0e6);
    c.isCountingDown = true;
    c.countDownTime = 100.0;
    c.checkObjectives();
    EXPECT_EQ(c.mode, MODE_LEVEL_COMPLETE);

    // A gentle docking inside Earth: a crash.
    Controller d;
    flyBeside(d, 4, 36, &Game::earth, 1.0e6);
    d.game.satellite.pos = Position(kSpotX + 1.0e6 + 1.0, 0.0, 0.0, 0.0);
    d.checkObjectives();
    EXPECT_EQ(d.mode, MODE_COLLISION_FADE);

    // A stopped world is not judged.
    Controller e;
    play::toStillFlight(e, 1, 36);
    placeBeside(e.game, e.game.earth, 1.0e6);
    e.doFrame();
    EXPECT_EQ(e.mode, MODE_PLAY);
}

TEST(Objectives, OnlyLevelEightCountsTheAsteroidPassAndThenWantsTheDocking) {
    for (const int level : {8, 7}) {
        SCOPED_TRACE(level);
        Controller c;
        flySeeded(c, level, 37);
        c.doFrame(); // the craft starts at the station, touching it
        EXPECT_EQ(c.mode, MODE_PLAY);
        // 250 m is not yet a pass; 249 m is, and the docking can only come in a later tick.
        Position& asteroid = c.game.asteroid.pos;
        asteroid = c.game.player.pos;
        asteroid.x += 250.0;
        c.checkObjectives();
        EXPECT_FALSE(c.isPartialObjectiveDone);
        asteroid.x -= 1.0;
        c.checkObjectives();
        EXPECT_EQ(c.isPartialObjectiveDone, level == 8);
        EXPECT_EQ(c.mode, MODE_PLAY);
        c.checkObjectives();
        EXPECT_EQ(c.mode, level == 8 ? MODE_LEVEL_COMPLETE : MODE_PLAY);
    }
}

} // namespace
} // namespace apsis
