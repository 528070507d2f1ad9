#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"

namespace apsis {
namespace {

// The highlighted entries, drawn over their bands of the menu picture; entry 1 is the top one.
constexpr const char* kMenuEntries[4] = {"menuAbout", "menuInstructions", "menuPractice",
                                         "menuNew"};

} // namespace

void DrawView::drawIntro(int counter) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    const double w = viewWidth;
    const double h = viewHeight;
    drawScreenPicture(*canvas, "splash", toRect(0, 0, w, h));

    // The loading bar: a blue border round a black trough that fills one ninth per picture loaded.
    // The fill runs to 298 points whatever the width of the view.
    canvas->fillRect(toRect(w / 4, h / 4, w / 2, 8), colors::blue);
    canvas->fillRect(toRect(w / 4 + 1, h / 4 + 1, w / 2 - 2, 6), colors::black);
    const double length = ((counter - 1) / -9.0 + 1) * 298;
    if (length > 0.0)
        canvas->fillRect(toRect(w / 4 + 1, h / 4 + 1, length, 6), colors::green);
}

void DrawView::drawMenu(int choice) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawScreenPicture(*canvas, "menu", toRect(0, 0, viewWidth, viewHeight));
    if (choice < 1 || choice > 4)
        return;
    // Band k reaches one point into the band below it.
    const auto w = static_cast<float>(viewWidth);
    const auto h = static_cast<float>(viewHeight);
    const auto k = static_cast<float>(choice);
    const Rect band{w / 5, (6 - k) * h / 8 - 1, 3 * w / 5 + 1, h / 8 + 1};
    drawScreenPicture(*canvas, kMenuEntries[choice - 1], band);
}

void DrawView::drawAbout() {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawScreenPicture(*canvas, "about", toRect(0, 0, viewWidth, viewHeight));
}

void DrawView::drawInstructions() {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawScreenPicture(*canvas, "instructions", toRect(0, 0, viewWidth, viewHeight));
}

} // namespace apsis
