#include "control/controller.h"

namespace apsis {

void Controller::drawRect() {
    drawView.initSizes();
    switch (mode) {
    case MODE_INTRO:
        drawView.drawIntro(counter);
        break;
    case MODE_MENU:
        drawView.drawMenu(menuChoice);
        break;
    case MODE_ABOUT:
        drawView.drawAbout();
        break;
    case MODE_INSTRUCTIONS:
        drawView.drawInstructions();
        break;
    case MODE_LEVEL:
        drawView.drawLevel(level, game);
        break;
    case MODE_CHOICE:
        drawView.drawChoice(level, game.difficulty);
        break;
    case MODE_PLAY:
        drawView.isPlatingReadOuts = isShowingNavAids;
        // The overlays exclude one another; a running countdown comes first.
        if (isCountingDown)
            drawView.drawCountDown(countDownTime, game);
        else if (isPartialObjectiveDone)
            drawView.drawFlag(game);
        else
            drawView.drawPlay(game);
        if (game.hold.kind != HoldKind::Off || plan.isSet)
            drawAssists(drawView, assistAids, isShowingNavAids ? &navAids : nullptr);
        else
            drawNavAidsOver();
        break;
    case MODE_RESTART_FADE:
    case MODE_COLLISION_FADE:
        drawView.drawFadeToWhite(counter / 8.0, game);
        break;
    case MODE_COLLISION:
        drawView.drawCollisionText(game);
        break;
    case MODE_LEVEL_COMPLETE:
        drawView.drawLevelComplete((200 - counter) / 20.0, game);
        break;
    }
}

} // namespace apsis
