#pragma once

namespace apsis {

struct Game;

// The way an attitude hold keeps the nose. Relative to the body it is measured from: along the
// motion (prograde) or against it, away from the body (radial out) or towards it; relative to the
// target: towards it, away from it, or against the motion relative to it; or along a planned burn,
// a blend of prograde and radial out.
enum class HoldKind {
    Off,
    Prograde,
    Retrograde,
    RadialOut,
    RadialIn,
    TowardsTarget,
    AwayFromTarget,
    AgainstTargetMotion,
    AlongPlan,
};

// An attitude hold: the way, and the bodies it is measured from (their places in the world's
// list of bodies, -1 for none). A plain value, so a copy of the world flies it too.
struct AttitudeHold {
    HoldKind kind = HoldKind::Off;
    int reference = -1; // the body prograde and radial are relative to
    int target = -1;    // the level's target
    double along = 0;   // for a planned burn: its parts along the motion and radial out, m/s
    double across = 0;
};

// The name of a hold as the display states it: "prograde", "against target motion".
const char* holdName(HoldKind kind);

// The direction a hold asks for in the world as it is, rad (as Position::angle); false when it has
// none (off, or a body it needs is missing).
bool heldDirection(const Game& game, double& angle);

// Before the craft's own move in a sub-step: the hold sets the heading the craft turns to, never
// the heading itself. It may set it anywhere the turn keys could bring it, no more than a quarter
// turn from the heading, and like the keys only while there is fuel.
void steerByHold(Game& game);

} // namespace apsis
