#pragma once

#include "control/nav_path.h"
#include "presentation/nav_aids.h"
#include "world/game.h"
#include "world/levels.h"

#include <vector>

namespace apsis {

// The parts of what the aids show, each worked out from the world as it is now and, where it
// looks ahead, from the path found. Places are given from the followed body.

// The craft's way relative to the followed body, its nose and the Sun.
void findMotion(NavAids& aids, const Game& game, const Stellar& followed);
// High and low points of the orbit around the followed body, or for a followed body without
// mass, around the body that pulls the craft hardest.
void findOrbitAround(NavAids& aids, const Game& game, const Stellar& followed);
// The body that turns the craft, as findOrbitAround chooses it: its place in kBodies.
int orbitCentreOf(const Game& game, const Stellar& followed);
// The orbit the level asks the craft to hold.
void findZone(NavAids& aids, const Game& game, const Level& row, const Stellar& followed);
// The body to reach next, or nullptr.
const Stellar* targetOf(const Game& game, const Level& row, bool isPartialObjectiveDone);
// The angle a level's briefing asks the pilot to wait for.
void findPhase(NavAids& aids, const Game& game, int level, const Stellar& followed);
// The target now, and the closest the path comes to it, refined between the path's places.
void findApproach(NavAids& aids, const Game& game, const Stellar& target, const Stellar& followed,
                  const std::vector<const PathSample*>& path, int reference);

} // namespace apsis
