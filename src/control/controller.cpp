#include "control/controller.h"

#include "physics/numeric.h"

#include <algorithm>
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

// How the camera opens a level: the stretch of world across the view and the body it looks at.
struct Framing {
    double viewScale;        // m
    Stellar Game::*followed; // the body the camera starts on
};

// Indexed by level. The levels about Earth open on Earth, wide enough for the craft's orbit;
// levels 7 and 8 open close on the station the craft starts beside.
constexpr std::array<Framing, 9> kFramings{{
    {E(120, 6), &Game::earth}, // 0: practice
    {E(120, 6), &Game::earth}, // 1
    {E(25, 6), &Game::earth},  // 2
    {E(25, 6), &Game::earth},  // 3
    {E(25, 6), &Game::earth},  // 4
    {E(120, 6), &Game::earth}, // 5
    {E(25, 6), &Game::earth},  // 6
    {200.0, &Game::station},   // 7
    {200.0, &Game::station},   // 8
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
    // After the last level the menu comes back, and the set-up screen offers level 8 again.
    if (n > 8) {
        setMode(MODE_MENU);
        return;
    }
    level = n;
    game.setLevel(n);
    desiredThrottle = game.player.throttle;
    setMode(MODE_LEVEL);
    isCountingDown = false;
    isPartialObjectiveDone = false;

    const Framing& framing = kFramings[static_cast<std::size_t>(std::clamp(n, 0, 8))];
    drawView.viewScale = framing.viewScale;
    drawView.viewTarget = game.*framing.followed;
    // The camera starts on the body instead of gliding in from wherever it was.
    drawView.viewCenter = drawView.viewTarget.pos;
}

} // namespace apsis
