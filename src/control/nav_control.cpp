#include "control/controller.h"

namespace apsis {

void Controller::toggleNavAids() {
    if (mode != MODE_PLAY)
        return;
    isShowingNavAids = !isShowingNavAids;
    // The path is found afresh each time the aids come on.
    navPrediction.clear();
    if (isShowingNavAids)
        navPrediction.update(game, level, drawView.viewTarget);
    needsRedraw = true;
}

void Controller::drawNavAidsOver() {
    if (isShowingNavAids)
        drawNavAids(drawView,
                    navPrediction.aids(game, level, isPartialObjectiveDone, drawView.viewTarget));
}

} // namespace apsis
