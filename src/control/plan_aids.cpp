#include "control/controller.h"
#include "control/nav_findings.h"
#include "world/levels.h"

#include <algorithm>

namespace apsis {

// What the assists show of the plan: its read-outs, and its path from the burn's start with the
// high and low points and the closest approach of the orbit it leaves the craft on. Places are
// given from the followed body, where it is at each of them.
void Controller::findPlanAids() {
    AssistAids& a = assistAids;
    const Player& craft = game.player;
    a.hasPlan = true;
    a.remaining = plan.remaining();
    a.duration = plan.duration(craft);
    a.timeToStart = plan.start(craft) - game.elapsedTime;
    a.isBurning = plan.fuelAtStart >= 0;
    a.fuelAfter = std::max(0.0, craft.fuel - a.remaining) / craft.acceleration / craft.throttle;
    a.along = plan.along;
    a.across = plan.across;

    const int reference = std::max(0, bodyIndex(game, drawView.viewTarget));
    const auto offsetOf = [reference](const PathSample& s) {
        return Offset{s.craft.x - s.bodyX[reference], s.craft.y - s.bodyY[reference]};
    };
    const PathResult* found = plannedPath.found();
    if (found == nullptr || found->fine.empty())
        return;
    for (const PathSample& s : found->burn)
        a.burn.push_back(offsetOf(s));
    std::vector<const PathSample*> places;
    for (const PathSample& s : found->fine)
        places.push_back(&s);
    for (const PathSample& s : found->coarse) {
        if (s.elapsed > places.back()->elapsed)
            places.push_back(&s);
    }
    for (const PathSample* s : places)
        a.path.push_back(offsetOf(*s));

    // The orbit the burn leaves the craft on, from the world at its end.
    const Game after = worldAt(game, found->fine.front());
    NavAids then;
    const Stellar& followedThen = after.*kBodies[reference];
    findOrbitAround(then, after, followedThen);
    a.hasOrbit = then.hasOrbit && !then.isCircular;
    a.isEscaping = then.isEscaping;
    a.high = then.high;
    a.low = then.low;
    a.orbitBody = then.orbitBody;
    if (const Stellar* target = targetOf(after, levelAt(level), isPartialObjectiveDone)) {
        findApproach(then, after, *target, followedThen, places, reference);
        a.approach = then.approach;
        // Its time from now, not from the burn's end.
        if (a.approach.time >= 0)
            a.approach.time += after.elapsedTime - game.elapsedTime;
    }
    if (found->impactBody >= 0) {
        a.impact.isShown = true;
        a.impact.at = offsetOf(*places.back());
        a.impact.name = (game.*kBodies[found->impactBody]).name;
    }
}

} // namespace apsis
