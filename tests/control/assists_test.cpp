#include "control/controller.h"
#include "control/keys.h"
#include "physics/numeric.h"
#include "play.h"
#include "support/fake_resources.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace apsis {
namespace {

double angleOff(const Game& game) {
    double wanted = 0;
    EXPECT_TRUE(heldDirection(game, wanted));
    return std::abs(std::remainder(wanted - game.player.pos.angle, kTwoPi));
}

// Each hold, chosen by its keys in level 6 (a target to dock with), brings the nose within 2
// degrees of its direction and keeps it there, the craft turning by its own rule: the heading it
// turns to never more than a quarter turn from its nose. A turn key ends the hold.
TEST(Assists, EachHoldBringsTheNoseRoundAndKeepsItThere) {
    ScopedFakeResources files;
    const struct {
        HoldKind kind;
        std::vector<unsigned short> keys;
    } holds[] = {
        {HoldKind::Prograde, {kKeyF3}},
        {HoldKind::Retrograde, {kKeyF3, kKeyF3}},
        {HoldKind::RadialOut, {kKeyF4}},
        {HoldKind::RadialIn, {kKeyF4, kKeyF4}},
        {HoldKind::TowardsTarget, {kKeyF5}},
        {HoldKind::AwayFromTarget, {kKeyF5, kKeyF5}},
        {HoldKind::AgainstTargetMotion, {kKeyF5, kKeyF5, kKeyF5}},
        {HoldKind::AlongPlan, {kKeyF7, kKeyPageUp, kKeyF9, kKeyF6}},
    };
    for (const auto& hold : holds) {
        Controller c;
        flySeeded(c, 6, 3);
        c.game.timeStep = 60; // a quicker turn of the orbit than the level's own
        for (const unsigned short key : hold.keys)
            play::press(c, key);
        ASSERT_EQ(c.game.hold.kind, hold.kind);
        for (int tick = 0; tick < 200; ++tick) {
            c.doFrame();
            const Player& craft = c.game.player;
            ASSERT_LE(std::abs(craft.targetAngle - craft.pos.angle), kHalfPi) << tick;
            if (tick >= 100) {
                ASSERT_LT(angleOff(c.game), 2 * kPi / 180) << holdName(hold.kind) << tick;
            }
        }
        play::press(c, kKeyLeft);
        EXPECT_EQ(c.game.hold.kind, HoldKind::Off);
    }
}

// The assists' keys act in flight only; elsewhere they are not even the key a screen waits for.
// Escape, Tab and a new level drop the plan; F8 does too.
TEST(Assists, KeysActInFlightOnlyAndThePlanIsDropped) {
    ScopedFakeResources files;
    Controller c;
    for (const MODE mode : {MODE_MENU, MODE_LEVEL, MODE_LEVEL_COMPLETE}) {
        c.setMode(mode);
        for (const unsigned short key : {kKeyF3, kKeyF7, kKeyHome, kKeyPageDown, kKeyF10})
            play::press(c, key);
        EXPECT_EQ(c.mode, mode);
        EXPECT_FALSE(c.plan.isSet);
        EXPECT_EQ(c.game.hold.kind, HoldKind::Off);
    }
    for (const unsigned short drop : {kKeyEscape, kKeyTab, kKeyF8, kKeyF7}) {
        flySeeded(c, 2, 1);
        play::press(c, kKeyF7);
        ASSERT_TRUE(c.plan.isSet);
        // Held, a key's steps grow: five ticks give more than five presses.
        const double time = c.plan.time;
        c.keyDown(kKeyEnd);
        play::ticks(c, 5);
        c.keyUp(kKeyEnd);
        EXPECT_GT(c.plan.time - time, 6 * 10.0);
        if (drop == kKeyF7)
            c.startLevel(3);
        else
            play::press(c, drop);
        EXPECT_FALSE(c.plan.isSet) << drop;
    }
}

// The planned path, as the plan's read-outs and marks are found from it: the burn, then the fine
// and coarse places after it.
std::vector<PathSample> plannedPlaces(const Controller& c) {
    std::vector<PathSample> places = c.plannedPath.found()->burn;
    for (const PathSample& s : c.plannedPath.found()->fine)
        places.push_back(s);
    for (const PathSample& s : c.plannedPath.found()->coarse) {
        if (s.elapsed > places.back().elapsed)
            places.push_back(s);
    }
    return places;
}

// Where the plan has the craft at a moment of its path, between its places.
Position plannedAt(const std::vector<PathSample>& places, double t) {
    const auto after =
        std::lower_bound(places.begin(), places.end(), t,
                         [](const PathSample& s, double v) { return s.elapsed < v; });
    const PathSample& b = *after;
    const PathSample& a = after == places.begin() ? b : after[-1];
    const double f = b.elapsed > a.elapsed ? (t - a.elapsed) / (b.elapsed - a.elapsed) : 1;
    Position p;
    p.x = a.craft.x + f * (b.craft.x - a.craft.x);
    p.y = a.craft.y + f * (b.craft.y - a.craft.y);
    return p;
}

// A plan flown as planned (the hold along the burn, the engine from its start, or in level 6 from
// a little before it) keeps the craft on the planned path over the following orbit, within 1% of
// its distance from Earth. The pilot never lets go of Up: the read-out counts the velocity change
// down to zero and the engine stops there by itself, the velocity change burned to the last bit.
TEST(Assists, APlanFlownAsPlannedStaysOnItsPath) {
    ScopedFakeResources files;
    for (const int level : {2, 6}) {
        Controller c;
        flySeeded(c, level, 4);
        c.game.timeStep = 60;
        play::press(c, kKeyF7);
        c.plan.along = 300;
        c.plan.across = 40;
        c.isPlanAsked = true;
        play::press(c, kKeyF6);
        c.doFrame();
        c.plannedPath.settle();
        const std::vector<PathSample> places = plannedPlaces(c);
        const BurnPlan plan = c.plan;
        const double fire = plan.start(c.game.player) - (level == 6 ? 20 : 0);
        const double orbitEnd = places.back().elapsed;
        ASSERT_GT(places.size(), 100u);
        double worst = 0;
        double lowestCountDown = plan.deltaV();
        double fuel = 0;
        for (int tick = 0; tick < 100000 && c.game.elapsedTime < orbitEnd; ++tick) {
            if (fuel == 0 && c.game.elapsedTime >= fire - 1e-6) {
                fuel = c.game.player.fuel;
                c.keyDown(kKeyUp);
            }
            c.doFrame();
            if (c.plan.isSet)
                lowestCountDown = std::min(lowestCountDown, c.assistAids.remaining);
            if (c.game.elapsedTime < places.front().elapsed || c.game.elapsedTime > orbitEnd)
                continue;
            const Position& p = c.game.player.pos;
            const Position q = plannedAt(places, c.game.elapsedTime);
            worst = std::max(worst, std::hypot(p.x - q.x, p.y - q.y) /
                                        std::sqrt(sqDist(p, c.game.earth.pos)));
        }
        EXPECT_FALSE(c.plan.isSet || c.game.player.isAccelerating) << level;
        EXPECT_NEAR(fuel - c.game.player.fuel, plan.deltaV(), 1e-6 * plan.deltaV()) << level;
        EXPECT_LT(worst, 0.01) << level;
        EXPECT_LT(lowestCountDown, 1e-6 * plan.deltaV()) << level;
    }
}

// The last kilometres of a docking, flown with the keys as a pilot would, judging by what the
// display shows: 3 km from the station round the Moon and drifting, the pilot cancels the drift
// with the hold against the motion relative to it, turns towards it with the other hold, fires
// for a closing speed that shrinks with the distance, coasts, and does it again; the last metres
// at 5 cm/s. The station is touched below 0.1 m/s: the level is complete.
TEST(Assists, TheTargetHoldsDockAtTheStation) {
    ScopedFakeResources files;
    Controller c;
    flySeeded(c, 6, 3);
    Game& g = c.game;
    Position& craft = g.player.pos;
    const Position& station = g.station.pos;
    craft.x = station.x + 2500;
    craft.y = station.y - 1500;
    craft.vx = station.vx + 4;
    craft.vy = station.vy + 3;
    g.timeStep = 0.5;
    g.player.throttle = 0.1;
    const auto gap = [&] {
        return std::sqrt(sqDist(craft, station)) - g.station.cRadius - g.player.cRadius;
    };
    const auto closing = [&] { // m/s towards the station
        const double d = std::sqrt(sqDist(craft, station));
        return ((station.x - craft.x) * (craft.vx - station.vx) +
                (station.y - craft.y) * (craft.vy - station.vy)) /
               d;
    };
    int ticks = 0;
    MODE ended = MODE_PLAY; // the flight's end, before a key of the pilot's passes it by
    const auto flying = [&] {
        if (ended == MODE_PLAY)
            ended = c.mode;
        return ended == MODE_PLAY && ++ticks < 40000;
    };
    const auto hold = [&](HoldKind kind) {
        for (int i = 0; i < 3 && g.hold.kind != kind; ++i)
            play::press(c, kKeyF5);
        while (flying() && angleOff(g) > kPi / 180)
            c.doFrame();
    };
    const auto fireUntil = [&](const auto& isDone) {
        c.keyDown(kKeyUp);
        while (flying() && !isDone())
            c.doFrame();
        c.keyUp(kKeyUp);
    };
    while (flying() && gap() > 0) {
        const double wanted = std::clamp(gap() / 300, 0.05, 5.0); // m/s
        hold(HoldKind::AgainstTargetMotion);
        fireUntil([&] { return velDiff(craft, station) < 0.2 * wanted; });
        hold(HoldKind::TowardsTarget);
        fireUntil([&] { return closing() >= wanted; });
        // Coast over half the way, or the whole of the last metres.
        const double until = gap() < 20 ? 0 : gap() / 2;
        while (flying() && gap() > until)
            c.doFrame();
    }
    EXPECT_EQ(ended, MODE_LEVEL_COMPLETE)
        << gap() << " m, " << velDiff(craft, station) << " m/s after " << ticks << " ticks";
}

// While a plan waits ahead under time warp, the time step shrinks at every tick towards the burn;
// the aids' path is not looked for again for that, and keeps reaching its horizon.
TEST(Assists, AStepCutByAPlanIsNoReasonToLookForThePathAgain) {
    ScopedFakeResources files;
    Controller c;
    flySeeded(c, 2, 1);
    play::press(c, kKeyF2);
    c.game.timeStep = 60;
    play::press(c, kKeyF7);
    ASSERT_TRUE(c.plan.isSet);
    int cutTicks = 0;
    int requests = 0;
    for (int tick = 0; tick < 5000 && c.plan.isSet && c.plan.fuelAtStart < 0; ++tick) {
        const int before = c.navPrediction.requests();
        c.doFrame();
        if (c.ownTimeStep > 0) {
            ++cutTicks;
            requests += c.navPrediction.requests() - before;
        }
    }
    EXPECT_GT(cutTicks, 30);
    EXPECT_LE(requests, 1) << cutTicks;
    // Found at the player's own step and followed by the clock, the path reaches its horizon.
    EXPECT_FALSE(c.navAids.isCutShort) << c.navAids.pathTime;
}

} // namespace
} // namespace apsis
