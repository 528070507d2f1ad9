#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"
#include "presentation/menu_layout.h"

namespace apsis {

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
    // The band as the menu picture has it, reaching one point further right and down.
    const auto w = static_cast<float>(viewWidth);
    const auto h = static_cast<float>(viewHeight);
    const auto bottom = static_cast<float>(menu::bottomEighths(choice));
    const Rect band{menu::kLeftFifths * w / 5, bottom * h / 8 - 1, menu::kWidthFifths * w / 5 + 1,
                    h / 8 + 1};
    drawScreenPicture(*canvas, menu::kBandNames[static_cast<std::size_t>(choice - 1)], band);
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
