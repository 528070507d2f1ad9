#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"
#include "presentation/format.h"
#include "world/game.h"

#include <string>

namespace apsis {
namespace {

const TextStyle kBriefingTitleStyle{FontFamily::Copperplate, 36.0f, colors::blue};
const TextStyle kBriefingTextStyle{FontFamily::Times, 13.0f, colors::white};
const TextStyle kCompleteTitleStyle{FontFamily::Copperplate, 24.0f, colors::green};
const TextStyle kCompleteBodyStyle{FontFamily::Courier, 14.0f, colors::green};

} // namespace

void DrawView::drawLevel(int level, Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    const std::string number = std::to_string(level);
    const std::string title = level == 0 ? "Practice Level" : "Level " + number;
    // A missing briefing is an empty one: the panel shrinks round the middle of the view.
    const std::string text = resources().loadText("level" + number, "txt").value_or("");

    drawGame(game);
    const double cx = viewWidth / 2;
    const double cy = viewHeight / 2;
    const Size size = canvas->measureText(text, kBriefingTextStyle);
    const double w = size.width;
    const double h = size.height;
    // 15 points round the text on three sides, 55 above it for the title.
    fillBevelledPanel(*canvas, cx - w / 2 - 15, cy - h / 2 - 15, w + 30, h + 70);
    drawCentredText(*canvas, title, kBriefingTitleStyle, cx, cy + h / 2 + 10);
    canvas->drawTextInRect(text, toRect(cx - w / 2, cy - h / 2, w, h), kBriefingTextStyle);
}

void DrawView::drawLevelComplete(double t, Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    // First the scene darkens; from t = 1 the summary stands on black, its values appearing one
    // after the other.
    if (t < 1.0) {
        drawGame(game);
        canvas->fillRect(toRect(0, 0, viewWidth, viewHeight), {0.0, 0.0, 0.0, t});
        return;
    }
    const Player& p = game.player;
    // The blank first line keeps the monospaced block from shifting when the values appear.
    std::string body = "                        ";
    body += "\nFuel Remaining: ";
    if (t > 2.0)
        body += formatPercent(p.fuel / p.maxFuel);
    body += "\nTime Remaining: ";
    if (t > 3.0)
        body +=
            game.timeLimit > 0.1 ? formatPercent(1 - game.elapsedTime / game.timeLimit) : " n/a  ";

    const Size bodySize = canvas->measureText(body, kCompleteBodyStyle);
    const double cx = viewWidth / 2;
    const double cy = viewHeight / 2;
    drawCentredText(*canvas, "Level Complete", kCompleteTitleStyle, cx,
                    cy + static_cast<double>(bodySize.height) / 2 + 50);
    canvas->drawText(body,
                     toPoint(cx - static_cast<double>(bodySize.width) / 2,
                             cy - static_cast<double>(bodySize.height) / 2),
                     kCompleteBodyStyle);
}

void DrawView::drawFadeToWhite(double t, Game& game) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawGame(game);
    canvas->fillRect(toRect(0, 0, viewWidth, viewHeight), {1.0, 1.0, 1.0, 1 - t});
}

} // namespace apsis
