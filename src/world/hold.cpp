#include "world/hold.h"

#include "physics/numeric.h"
#include "world/bodies.h"

#include <algorithm>
#include <cmath>

namespace apsis {

const char* holdName(HoldKind kind) {
    switch (kind) {
    case HoldKind::Off:
        return "off";
    case HoldKind::Prograde:
        return "prograde";
    case HoldKind::Retrograde:
        return "retrograde";
    case HoldKind::RadialOut:
        return "radial out";
    case HoldKind::RadialIn:
        return "radial in";
    case HoldKind::TowardsTarget:
        return "towards target";
    case HoldKind::AwayFromTarget:
        return "away from target";
    case HoldKind::AgainstTargetMotion:
        return "against target motion";
    case HoldKind::AlongPlan:
        return "planned burn";
    }
    return "";
}

bool heldDirection(const Game& game, double& angle) {
    const AttitudeHold& hold = game.hold;
    const Position& craft = game.player.pos;
    const auto bodyAt = [&](int index) -> const Position* {
        return index >= 0 && index < kBodyCount ? &(game.*kBodies[index]).pos : nullptr;
    };
    switch (hold.kind) {
    case HoldKind::Off:
        return false;
    case HoldKind::Prograde:
    case HoldKind::Retrograde:
    case HoldKind::RadialOut:
    case HoldKind::RadialIn:
    case HoldKind::AlongPlan: {
        const Position* body = bodyAt(hold.reference);
        if (body == nullptr)
            return false;
        const double prograde = std::atan2(craft.vy - body->vy, craft.vx - body->vx);
        const double radial = std::atan2(craft.y - body->y, craft.x - body->x);
        if (hold.kind == HoldKind::Prograde)
            angle = prograde;
        else if (hold.kind == HoldKind::Retrograde)
            angle = prograde + kPi;
        else if (hold.kind == HoldKind::RadialOut)
            angle = radial;
        else if (hold.kind == HoldKind::RadialIn)
            angle = radial + kPi;
        else
            angle = std::atan2(hold.along * std::sin(prograde) + hold.across * std::sin(radial),
                               hold.along * std::cos(prograde) + hold.across * std::cos(radial));
        return true;
    }
    case HoldKind::TowardsTarget:
    case HoldKind::AwayFromTarget:
    case HoldKind::AgainstTargetMotion: {
        const Position* target = bodyAt(hold.target);
        if (target == nullptr)
            return false;
        if (hold.kind == HoldKind::AgainstTargetMotion)
            angle = std::atan2(target->vy - craft.vy, target->vx - craft.vx);
        else
            angle = std::atan2(target->y - craft.y, target->x - craft.x) +
                    (hold.kind == HoldKind::AwayFromTarget ? kPi : 0.0);
        return true;
    }
    }
    return false;
}

void steerByHold(Game& game) {
    Player& craft = game.player;
    double wanted = 0;
    if (craft.fuel <= 0 || !heldDirection(game, wanted))
        return;
    // The way round that is shorter, as far as a held turn key could reach.
    const double turn =
        std::clamp(std::remainder(wanted - craft.pos.angle, kTwoPi), -kHalfPi, kHalfPi);
    craft.targetAngle = craft.pos.angle + turn;
}

} // namespace apsis
