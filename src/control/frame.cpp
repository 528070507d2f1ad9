#include "control/controller.h"

#include <cmath>

namespace apsis {
namespace {

// The simulated time per tick stays between 1 and 31536000 (a year) seconds per real second.
constexpr double kShortestTimeStep = 1.0 / 30.0; // s
constexpr double kLongestTimeStep = 1051200.0;   // s

// The craft's throttle never reaches 0: the lowest setting is a thousandth of full thrust.
double clampThrottle(double throttle) {
    if (throttle > 1.0)
        return 1.0;
    if (throttle < 0.001)
        return 0.001;
    return throttle;
}

// The picture the intro loads at each value of its count, from 10 down to 1: the small bodies
// first, the craft's after the station's, the Sun's last. The craft's thrust picture is left to
// load when it is first drawn.
Image* introPicture(Game& game, int counter) {
    Image* const inLoadingOrder[] = {
        &game.asteroid.img, &game.station.img, &game.player.img, &game.satellite.img,
        &game.jupiter.img,  &game.mars.img,    &game.venus.img,  &game.moon.img,
        &game.earth.img,    &game.sun.img,
    };
    return counter >= 1 && counter <= 10 ? inLoadingOrder[10 - counter] : nullptr;
}

// What follows a timed mode when its count runs out.
void endTimedMode(Controller& c) {
    switch (c.mode) {
    case MODE_INTRO:
        c.setMode(MODE_MENU);
        break;
    case MODE_RESTART_FADE:
        c.startLevel(c.level);
        break;
    case MODE_COLLISION_FADE:
        c.setMode(MODE_COLLISION);
        break;
    case MODE_COLLISION:
        c.startLevel(c.level);
        break;
    case MODE_LEVEL_COMPLETE:
        c.startLevel(c.level + 1);
        break;
    default:
        break;
    }
}

// The screens drawn from the count itself, redrawn at every tick of it. The collision message is
// still: it is drawn once, when the mode is entered.
bool isAnimated(MODE mode) {
    return mode == MODE_INTRO || mode == MODE_RESTART_FADE || mode == MODE_COLLISION_FADE ||
           mode == MODE_LEVEL_COMPLETE;
}

} // namespace

void Controller::doFrame() {
    // A. Start-up loading, one picture per tick of the intro.
    if (mode == MODE_INTRO) {
        if (Image* picture = introPicture(game, counter))
            picture->loadImage();
    }

    // B. Timed modes.
    if (counter > 0) {
        counter = counter - 1;
        if (counter == 0)
            endTimedMode(*this);
        else if (isAnimated(mode))
            needsRedraw = true;
    }

    // C. Flight. A stopped world still answers the keys, and the camera still glides.
    if (mode != MODE_PLAY)
        return;
    // A plan ahead may have cut the last tick's time step: the keys act on the player's own.
    if (ownTimeStep > 0) {
        game.timeStep = ownTimeStep;
        ownTimeStep = 0;
    }
    applyHeldKeys();
    beforeWorldStep();
    if (game.running)
        game.doFrame(level);
    followNearestBody();
    // The craft measures itself against the snapshot the display shows, not the body itself.
    game.player.mainInfluence = &drawView.viewTarget;
    drawView.moveCamera(game.timeStep, game.running);
    if (game.running)
        checkObjectives();
    if (mode == MODE_PLAY)
        afterWorldStep();
    if (isShowingNavAids)
        updateNavAids();
    needsRedraw = true;
}

void Controller::applyHeldKeys() {
    double& timeStep = game.timeStep;
    double& throttle = game.player.throttle;

    // Zooming changes the time per tick by the square root of the change of scale. The indicator
    // grows out of the followed body while zooming in and shrinks into it while zooming out.
    if (isZoomingIn) {
        drawView.viewScale = drawView.viewScale * 0.9025;
        timeStep = timeStep * 0.95;
        drawView.zoomRect = drawView.zoomRect / 0.9025;
        if (drawView.zoomRect > 1.0)
            drawView.zoomRect = 0.1;
    }
    if (isZoomingOut) {
        // The zoom stops short of infinity, from where zooming in could never bring it back.
        const double wider = drawView.viewScale / 0.9025;
        if (std::isfinite(wider))
            drawView.viewScale = wider;
        timeStep = timeStep / 0.95;
        drawView.zoomRect = drawView.zoomRect * 0.9025;
        if (drawView.zoomRect < 0.1)
            drawView.zoomRect = 1.0;
    }

    // The time keys move the asked-for throttle the other way, so that throttle times time step,
    // the velocity change per tick, stays as it was.
    if (isSpeedingUp) {
        timeStep = timeStep / 0.95;
        desiredThrottle = desiredThrottle * 0.95;
    }
    if (isSlowingDown) {
        timeStep = timeStep * 0.95;
        desiredThrottle = desiredThrottle / 0.95;
    }

    // desiredThrottle itself may wander beyond the craft's range and come back.
    throttle = clampThrottle(desiredThrottle);
    if (isThrottlingUp)
        throttle = throttle / 0.9;
    if (isThrottlingDown)
        throttle = throttle * 0.9;
    if (isThrottlingUp || isThrottlingDown) {
        throttle = clampThrottle(throttle);
        desiredThrottle = throttle;
    }

    if (timeStep < kShortestTimeStep)
        timeStep = kShortestTimeStep;
    else if (timeStep > kLongestTimeStep)
        timeStep = kLongestTimeStep;
}

} // namespace apsis
