#include "control/controller.h"
#include "control/keys.h"
#include "control/nav_findings.h"
#include "world/levels.h"

#include <algorithm>
#include <cmath>

namespace apsis {
namespace {

constexpr double kShortestTimeStep = 1.0 / 30.0; // s, as the time keys keep it
constexpr double kTimeNudge = 10.0;              // s, a plan moved earlier or later
constexpr double kSpeedNudge = 1.0;              // m/s, a plan's velocity change
constexpr double kNudgeGrowth = 1.08;            // a held key's step grows so much a tick
constexpr double kLargestNudge = 100.0;          // ... up to this many first steps
constexpr int kPlanRefreshTicks = 6;             // a held key asks for the plan's path this often
constexpr double kFurthestSteps = 1000;
constexpr double kShortestLead = 60.0; // s, the least time from now to a burn's start
constexpr double kBurnedOut = 1e-6;    // m/s left of a burn that count as none

// The player's own time step, s, whether or not a plan ahead cuts this tick's.
double playerStep(const Controller& c) {
    return c.ownTimeStep > 0 ? c.ownTimeStep : c.game.timeStep;
}

// The least time from now to a new plan's start: a second of the player's time, a minute at the
// least. The engine fired within it before the start begins the burn.
double leadOf(const Controller& c) {
    return std::max(kShortestLead, 30 * playerStep(c));
}

int targetIndex(const Controller& c) {
    const Stellar* target = targetOf(c.game, levelAt(c.level), c.isPartialObjectiveDone);
    return target != nullptr ? bodyIndex(c.game, *target) : -1;
}

// The hold learns the bodies it is measured from: the followed one (the plan's own for a hold
// along it) and the level's target.
void aimHold(Controller& c) {
    AttitudeHold& hold = c.game.hold;
    const int followed = bodyIndex(c.game, c.drawView.viewTarget);
    hold.reference = hold.kind == HoldKind::AlongPlan ? c.plan.centre : followed;
    hold.target = targetIndex(c);
    hold.along = c.plan.along;
    hold.across = c.plan.across;
}

// The hold a key chooses: the first of its kind, or pressed again the next.
HoldKind nextHold(HoldKind now, unsigned short key) {
    const auto other = [now](HoldKind a, HoldKind b) { return now == a ? b : a; };
    switch (key) {
    case kKeyF3:
        return other(HoldKind::Prograde, HoldKind::Retrograde);
    case kKeyF4:
        return other(HoldKind::RadialOut, HoldKind::RadialIn);
    case kKeyF5:
        return now == HoldKind::TowardsTarget    ? HoldKind::AwayFromTarget
               : now == HoldKind::AwayFromTarget ? HoldKind::AgainstTargetMotion
                                                 : HoldKind::TowardsTarget;
    default:
        return HoldKind::AlongPlan;
    }
}

// The burn starts no sooner than a second of the player's time from now (a minute at the least),
// and no further ahead than the path's longest look or a thousand of its coarse steps, which
// the game's thread flies whenever the plan changes.
void keepPlanAhead(Controller& c) {
    const double now = c.game.elapsedTime;
    const double lead = leadOf(c);
    const double reach =
        std::min(PathFinder::kLongestLook, kFurthestSteps * PathFinder::coarseStep(c.game));
    c.plan.time = std::max(std::min(c.plan.time, now + std::max(lead, reach)),
                           now + lead + c.plan.duration(c.game.player) / 2);
}

bool isPlanNudge(unsigned short key) {
    return key == kKeyHome || key == kKeyEnd || key == kKeyPageUp || key == kKeyPageDown ||
           key == kKeyF9 || key == kKeyF10;
}

// One step of a key that moves or sizes the plan, grown by the ticks it has been held. A move in
// time is a tick of the player's time at the least, so that a plan months ahead moves as readily
// as one minutes ahead.
void nudgePlan(Controller& c, unsigned short key, int ticks) {
    BurnPlan& plan = c.plan;
    const double grown = std::min(kLargestNudge, std::pow(kNudgeGrowth, ticks));
    const double moved = std::max(kTimeNudge, playerStep(c)) * grown;
    if (key == kKeyHome)
        plan.time -= moved;
    else if (key == kKeyEnd)
        plan.time += moved;
    else if (key == kKeyPageUp)
        plan.along += kSpeedNudge * grown;
    else if (key == kKeyPageDown)
        plan.along -= kSpeedNudge * grown;
    else if (key == kKeyF9)
        plan.across += kSpeedNudge * grown;
    else if (key == kKeyF10)
        plan.across -= kSpeedNudge * grown;
    keepPlanAhead(c);
    c.isPlanAsked = true;
}

// A plan at the next low point of the orbit round the body that turns the craft, or pressed again
// at the next high point; without either, a little ahead. Its velocity change is kept.
void placePlan(Controller& c) {
    const Stellar& followed = c.drawView.viewTarget;
    NavAids orbit;
    findOrbitAround(orbit, c.game, followed);
    const bool atHigh = c.plan.isSet && !c.plan.isAtHigh;
    const NavMark& mark = atHigh ? orbit.high : orbit.low;
    const double ahead = orbit.hasOrbit && mark.isShown && mark.time > 0
                             ? mark.time
                             : std::max(600.0, 60 * c.game.timeStep);
    c.plan.isSet = true;
    c.plan.isAtHigh = atHigh;
    c.plan.centre = orbitCentreOf(c.game, followed);
    c.plan.time = c.game.elapsedTime + ahead;
    c.plan.burned = 0;
    nudgePlan(c, 0, 0);
}

} // namespace

bool Controller::assistKeyDown(unsigned short key) {
    const bool isPlay = mode == MODE_PLAY;
    if (key == kKeyLeft || key == kKeyRight) {
        // The turn keys take the craft back from the hold.
        if (isPlay)
            game.hold.kind = HoldKind::Off;
        return false;
    }
    if (key == kKeyEscape || key == kKeyTab) {
        dropPlan();
        return false;
    }
    const bool isHoldKey = key == kKeyF3 || key == kKeyF4 || key == kKeyF5 || key == kKeyF6;
    if (!isHoldKey && key != kKeyF7 && key != kKeyF8 && !isPlanNudge(key))
        return false;
    if (!isPlay)
        return true;
    const bool isBurnAhead = plan.isSet && game.elapsedTime < plan.start(game.player);
    if (isHoldKey) {
        if ((key == kKeyF5 && targetIndex(*this) < 0) || (key == kKeyF6 && !plan.isSet))
            return true;
        game.hold.kind = nextHold(game.hold.kind, key);
        aimHold(*this);
    } else if (key == kKeyF7) {
        if (!plan.isSet || isBurnAhead)
            placePlan(*this);
    } else if (key == kKeyF8) {
        dropPlan();
    } else if (isBurnAhead) {
        heldPlanKey = key;
        planKeyTicks = 0;
        nudgePlan(*this, key, 0);
    }
    needsRedraw = true;
    return true;
}

void Controller::assistKeyUp(unsigned short key) {
    if (key == heldPlanKey) {
        heldPlanKey = 0;
        isPlanAsked = true;
    }
}

void Controller::dropPlan() {
    if (!plan.isSet)
        return;
    plan = BurnPlan{};
    plannedPath.clear();
    heldPlanKey = 0;
    isPlanAsked = false;
    assistAids = AssistAids{};
    if (game.hold.kind == HoldKind::AlongPlan)
        game.hold.kind = HoldKind::Off;
}

// After the held keys: the hold learns the bodies it is measured from, a held plan key takes its
// next step, and a plan ahead cuts the time step so that its start is not skipped.
void Controller::beforeWorldStep() {
    aimHold(*this);
    if (!plan.isSet)
        return;
    if (heldPlanKey != 0 && game.elapsedTime < plan.start(game.player))
        nudgePlan(*this, heldPlanKey, ++planKeyTicks);
    // Fired a little before the start, the burn has begun: it is counted from here, not pushed on
    // ahead of the craft.
    const Player& craft = game.player;
    if (game.running && plan.fuelAtStart < 0 && craft.isAccelerating &&
        game.elapsedTime >= plan.start(craft) - leadOf(*this))
        plan.fuelAtStart = craft.fuel;
    if (game.running) {
        const double cut = planTimeStep(plan, game, game.timeStep, kShortestTimeStep);
        if (cut < game.timeStep) {
            ownTimeStep = game.timeStep;
            game.timeStep = cut;
        }
    }
}

// After the world step: the burn is counted, a plan flown or missed is dropped, its path is asked
// for again when it changed, and what the assists show is worked out.
void Controller::afterWorldStep() {
    const Player& craft = game.player;
    if (plan.isSet) {
        // A changed plan, throttle or course (the engine fired by hand) asks for the path again,
        // and a longer burn that would now start in the past starts a little ahead instead.
        if (plan.fuelAtStart < 0 &&
            (isPlanAsked || craft.isAccelerating || craft.throttle != plan.askedThrottle)) {
            isPlanAsked = true;
            keepPlanAhead(*this);
        }
        const double now = game.elapsedTime;
        const double start = plan.start(craft);
        const double end = plan.end(craft);
        const double slack = 1e-9 * std::max(1.0, std::abs(now));
        if (plan.fuelAtStart >= 0)
            plan.burned = plan.fuelAtStart - craft.fuel;
        else if (now >= start - slack)
            plan.fuelAtStart = craft.fuel;
        if (plan.fuelAtStart >= 0 && plan.remaining() <= kBurnedOut) {
            // The velocity change is burned: the engine stops, whatever the pilot's reflexes under
            // time warp, until Up is pressed again; the read-out shows nothing left for a tick,
            // and the plan is done.
            if (craft.isAccelerating)
                game.player.isAccelerating = false;
            else
                dropPlan();
        } else if (now >= end - slack && !craft.isAccelerating && (plan.burned > 0 || now > end)) {
            dropPlan();
        } else if (plan.fuelAtStart < 0) {
            // The path is asked for at once, a few times a second while a key sizes the plan, and
            // after the engine stops.
            const bool isHeld = heldPlanKey != 0 || craft.isAccelerating;
            if (isPlanAsked &&
                (!isHeld || (heldPlanKey != 0 && planKeyTicks % kPlanRefreshTicks == 0))) {
                plannedPath.request(game, level, plan, targetIndex(*this));
                plan.askedThrottle = craft.throttle;
                isPlanAsked = false;
            }
        }
    }
    plannedPath.update();
    assistAids = AssistAids{};
    if (game.hold.kind != HoldKind::Off)
        assistAids.hold = holdName(game.hold.kind);
    if (plan.isSet)
        findPlanAids();
}

} // namespace apsis
