#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"
#include "presentation/format.h"
#include "world/game.h"

namespace apsis {
namespace {

const TextStyle kBannerStyle{FontFamily::Copperplate, 14.0f, colors::black, colors::red};
const TextStyle kPromptStyle{FontFamily::Copperplate, 24.0f, colors::white,
                             Color{0.2, 0.2, 0.2, 1.0}};
const TextStyle kHintStyle{FontFamily::Courier, 13.0f, colors::lightGray};
const TextStyle kFlagStyle{FontFamily::Courier, 12.0f, colors::blue};
const TextStyle kCountDownStyle{FontFamily::Courier, 14.0f, colors::yellow};
const TextStyle kCollisionStyle{FontFamily::Copperplate, 18.0f, colors::red};

} // namespace

void DrawView::drawPlay(Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawGame(game);
    const double w = viewWidth;
    const double h = viewHeight;

    // The warnings show whether or not the world runs; neither ends the attempt.
    if (game.player.fuel <= 0)
        drawNotice(*canvas, " Out Of Fuel ", kBannerStyle, w / 2, h * 5 / 8 + 20);
    if (game.timeLimit != 0 && game.elapsedTime > game.timeLimit)
        drawNotice(*canvas, " Time Limit Exceeded ", kBannerStyle, w / 2, h * 5 / 8);

    if (!game.running) {
        drawNotice(*canvas, " Spacebar to Continue ", kPromptStyle, w / 2, h * 0.6, true);
        drawNotice(*canvas, "Tab to Restart Level\nEscape to Abort Game", kHintStyle, w / 2,
                   h * 0.4, true);
    }
}

void DrawView::drawFlag(Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawPlay(game);
    canvas->drawText("Partial Objective Accomplished", {20.0f, 40.0f}, kFlagStyle);
}

void DrawView::drawCountDown(double t, Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawPlay(game);
    drawNotice(*canvas, "Maintain orbit for " + formatTime(t), kCountDownStyle, viewWidth / 2,
               viewHeight * 3 / 4);
}

void DrawView::drawCollisionText(Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    // The followed body is not refreshed after the crash, so the speed stays the one of impact.
    drawCentredText(*canvas, "Collision at " + formatVelDiff(game.player.pos, viewTarget.pos),
                    kCollisionStyle, viewWidth / 2, viewHeight / 2);
}

void DrawView::drawNotice(Canvas& canvas, const std::string& text, const TextStyle& style,
                          double centreX, double y, bool aroundMiddle) {
    const Size size = drawCentredText(canvas, text, style, centreX, y, aroundMiddle);
    const double bottom = aroundMiddle ? y - static_cast<double>(size.height) / 2 : y;
    textsDrawn.push_back(toRect(centreX - static_cast<double>(size.width) / 2, bottom,
                                static_cast<double>(size.width), static_cast<double>(size.height)));
}

} // namespace apsis
