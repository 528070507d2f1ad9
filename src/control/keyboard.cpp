#include "control/controller.h"
#include "control/keys.h"
#include "world/levels.h"

namespace apsis {
namespace {

// The letters that act for as long as they are held: each raises a flag that the flight tick
// reads, in any mode.
struct HeldKey {
    unsigned short key;
    bool Controller::*flag;
    double zoomRect; // the zoom indicator's size on press; 0 leaves it alone
    bool Controller::*
        otherZoom; // for a zoom key, the other one: the indicator stays while it is held
};

constexpr HeldKey kHeldKeys[] = {
    {kKeyA, &Controller::isSlowingDown, 0.0, nullptr},
    {kKeyQ, &Controller::isZoomingOut, 0.8, &Controller::isZoomingIn},
    {kKeyS, &Controller::isSpeedingUp, 0.0, nullptr},
    {kKeyW, &Controller::isZoomingIn, 0.4, &Controller::isZoomingOut},
    {kKeyX, &Controller::isThrottlingUp, 0.0, nullptr},
    {kKeyZ, &Controller::isThrottlingDown, 0.0, nullptr},
};

const HeldKey* heldKey(unsigned short key) {
    for (const HeldKey& held : kHeldKeys) {
        if (held.key == key)
            return &held;
    }
    return nullptr;
}

// One step through first..last, round the end.
int cycle(int value, int step, int first, int last) {
    value += step;
    if (value > last)
        return first;
    if (value < first)
        return last;
    return value;
}

// The main menu: the arrows move the highlight, any other key opens the entry (1 about,
// 2 instructions, 3 practice, 4 new game).
void menuKey(Controller& c, unsigned short key) {
    if (key == kKeyDown || key == kKeyRight) {
        c.menuChoice = cycle(c.menuChoice, +1, 1, 4);
    } else if (key == kKeyUp || key == kKeyLeft) {
        c.menuChoice = cycle(c.menuChoice, -1, 1, 4);
    } else if (c.menuChoice == 1) {
        c.setMode(MODE_ABOUT);
    } else if (c.menuChoice == 2) {
        c.setMode(MODE_INSTRUCTIONS);
    } else if (c.menuChoice == 3) {
        c.startLevel(0);
    } else if (c.menuChoice == 4) {
        c.setMode(MODE_CHOICE);
    }
    c.needsRedraw = true;
}

// The set-up screen: up and down choose the level, left and right the difficulty, any other key
// starts the game. The practice level is not on offer here.
void choiceKey(Controller& c, unsigned short key) {
    if (key == kKeyDown)
        c.level = cycle(c.level, +1, 1, kLevelCount - 1);
    else if (key == kKeyUp)
        c.level = cycle(c.level, -1, 1, kLevelCount - 1);
    else if (key == kKeyLeft)
        c.game.difficulty = cycle(c.game.difficulty, -1, 1, 3);
    else if (key == kKeyRight)
        c.game.difficulty = cycle(c.game.difficulty, +1, 1, 3);
    else
        c.startLevel(c.level);
    c.needsRedraw = true;
}

// Flight: the arrows steer and fire, Tab gives up the attempt, Space starts and pauses the world.
void playKey(Controller& c, unsigned short key) {
    Player& ship = c.game.player;
    if (key == kKeyUp) {
        // An empty tank (a burn may overdraw it a little) reads as exactly empty.
        if (ship.fuel > 0)
            ship.isAccelerating = true;
        else
            ship.fuel = 0.0;
    } else if (key == kKeyLeft) {
        ship.isTurningLeft = true;
    } else if (key == kKeyRight) {
        ship.isTurningRight = true;
    } else if (key == kKeyTab) {
        c.setMode(MODE_RESTART_FADE);
    } else if (key == kKeySpace) {
        c.game.running = !c.game.running;
        c.needsRedraw = true;
    }
}

} // namespace

void Controller::keyDown(unsigned short key) {
    // The keys the game adds act in flight only; elsewhere they are not even the "any key" that a
    // screen waits for.
    if (key == kKeyF2) {
        toggleNavAids();
        return;
    }
    if (assistKeyDown(key))
        return;

    // Stage 1: what the key means on the present screen.
    switch (mode) {
    case MODE_INTRO:
    case MODE_RESTART_FADE:
    case MODE_COLLISION_FADE:
        break;
    case MODE_MENU:
        menuKey(*this, key);
        break;
    case MODE_ABOUT:
    case MODE_INSTRUCTIONS:
        setMode(MODE_MENU);
        break;
    case MODE_LEVEL:
        // The flight opens with the world still stopped.
        setMode(MODE_PLAY);
        break;
    case MODE_CHOICE:
        choiceKey(*this, key);
        break;
    case MODE_PLAY:
        playKey(*this, key);
        break;
    case MODE_COLLISION:
        startLevel(level);
        break;
    case MODE_LEVEL_COMPLETE:
        startLevel(level + 1);
        break;
    }

    // Stage 2: the keys that mean the same everywhere, after the screen has had its say.
    if (key == kKeyEscape) {
        if (level == 0)
            level = 1;
        setMode(MODE_MENU);
    } else if (const HeldKey* held = heldKey(key)) {
        this->*held->flag = true;
        if (held->zoomRect != 0.0)
            drawView.zoomRect = held->zoomRect;
    }
}

void Controller::keyUp(unsigned short key) {
    assistKeyUp(key);
    // Stage 1: only in flight do the arrows let go of the craft's controls; elsewhere a held arrow
    // stays set until the next level set-up clears it.
    if (mode == MODE_PLAY) {
        Player& ship = game.player;
        if (key == kKeyLeft)
            ship.isTurningLeft = false;
        else if (key == kKeyRight)
            ship.isTurningRight = false;
        else if (key == kKeyUp)
            ship.isAccelerating = false;
    }

    // Stage 2: letters are let go in every mode.
    if (const HeldKey* held = heldKey(key)) {
        this->*held->flag = false;
        if (held->otherZoom != nullptr && !(this->*held->otherZoom))
            drawView.zoomRect = 0.0;
    }
}

} // namespace apsis
