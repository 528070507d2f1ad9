#include "control/controller.h"

#include "physics/numeric.h"
#include "world/levels.h"

#include <array>
#include <cstddef>

namespace apsis {
namespace {

// What entering a mode does besides showing its screen.
struct ModeEntry {
    int ticks;       // the mode's count; 0 for a mode that waits for a key
    bool stopsWorld; // entering it stops the world
};

// Indexed by MODE. The intro's count of 10 is set by the constructor, never by setMode.
constexpr std::array<ModeEntry, 11> kModeEntries{{
    {0, false},  // MODE_INTRO
    {0, true},   // MODE_MENU
    {0, true},   // MODE_ABOUT
    {0, true},   // MODE_INSTRUCTIONS
    {0, true},   // MODE_LEVEL
    {0, false},  // MODE_CHOICE
    {0, false},  // MODE_PLAY: the space bar starts the world, not the mode
    {8, true},   // MODE_RESTART_FADE
    {8, true},   // MODE_COLLISION_FADE
    {60, false}, // MODE_COLLISION: the world was already stopped by the fade before it
    {200, true}, // MODE_LEVEL_COMPLETE
}};

} // namespace

// The camera starts on Earth, which like every body still sits at the origin; the first level
// start frames it properly. The members' own initial values put the controller in the intro with
// its count of 10.
Controller::Controller() : drawView(E(1.0, 9), game.earth.pos, game.earth) {}

void Controller::setMode(MODE m) {
    const ModeEntry& entry = kModeEntries[static_cast<std::size_t>(m)];
    mode = m;
    counter = entry.ticks;
    if (entry.stopsWorld)
        game.running = false;
    needsRedraw = true;
}

void Controller::startLevel(int n) {
    // After the last level the menu comes back, and the set-up screen offers the last level again.
    if (n >= kLevelCount) {
        setMode(MODE_MENU);
        return;
    }
    level = n;
    // The path ahead belongs to the attempt: its worker stops with it.
    navPrediction.clear();
    // So do the assists: the hold, the plan and a time step it cut.
    dropPlan();
    ownTimeStep = 0;
    game.setLevel(n);
    game.hold = AttitudeHold{};
    desiredThrottle = game.player.throttle;
    setMode(MODE_LEVEL);
    isCountingDown = false;
    isPartialObjectiveDone = false;

    const Level& row = levelAt(n);
    drawView.viewScale = row.viewScale;
    drawView.viewTarget = game.*row.opensOn;
    // The camera starts on the body instead of gliding in from wherever it was.
    drawView.viewCenter = drawView.viewTarget.pos;
}

} // namespace apsis
