#include "control/controller.h"

namespace apsis {

void Controller::toggleNavAids() {
    if (mode != MODE_PLAY)
        return;
    isShowingNavAids = !isShowingNavAids;
    // The path is found afresh each time the aids come on.
    navPrediction.clear();
    if (isShowingNavAids)
        updateNavAids();
    needsRedraw = true;
}

// After the world step and the camera: the path is extended or found again, and what the aids
// show is worked out here, once, rather than in each of the window's two passes over a frame.
void Controller::updateNavAids() {
    navPrediction.update(game, level, isPartialObjectiveDone, drawView.viewTarget, ownTimeStep);
    navAids = navPrediction.aids(game, level, isPartialObjectiveDone, drawView.viewTarget);
}

void Controller::drawNavAidsOver() {
    if (isShowingNavAids)
        drawNavAids(drawView, navAids);
}

} // namespace apsis
