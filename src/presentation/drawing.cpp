#include "presentation/drawing.h"

namespace apsis {

Size drawCentredText(Canvas& canvas, const std::string& text, const TextStyle& style,
                     double centreX, double y, bool aroundMiddle) {
    const Size size = canvas.measureText(text, style);
    const double bottom = aroundMiddle ? y - static_cast<double>(size.height) / 2 : y;
    canvas.drawText(text, toPoint(centreX - static_cast<double>(size.width) / 2, bottom), style);
    return size;
}

void drawScreenPicture(Canvas& canvas, const std::string& name, const Rect& dest) {
    const PictureHandle picture = resources().loadPicture(name, "jpg");
    if (!picture)
        return;
    canvas.drawPicture(picture.get(), {0.0f, 0.0f, picture->width(), picture->height()}, dest, 1.0);
}

void fillBevelledPanel(Canvas& canvas, double x, double y, double width, double height) {
    for (int i = 0; i <= 5; ++i) {
        const double g = 1 - i / 5.0;
        canvas.fillRect(toRect(x + i, y + i, width - 2 * i, height - 2 * i), {g, g, g, 1.0});
    }
}

} // namespace apsis
