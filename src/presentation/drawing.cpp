#include "presentation/drawing.h"

namespace apsis {

Size drawCentredText(Canvas& canvas, const std::string& text, const TextStyle& style,
                     double centreX, double y) {
    const Size size = canvas.measureText(text, style);
    canvas.drawText(text, toPoint(centreX - static_cast<double>(size.width) / 2, y), style);
    return size;
}

void drawWholePicture(Canvas& canvas, const PictureHandle& picture, const Rect& dest) {
    if (!picture)
        return;
    canvas.drawPicture(picture.get(), {0.0f, 0.0f, picture->width(), picture->height()}, dest, 1.0);
}

void drawScreenPicture(Canvas& canvas, const std::string& name, const Rect& dest) {
    drawWholePicture(canvas, resources().loadPicture(name, "jpg"), dest);
}

void fillBevelledPanel(Canvas& canvas, double x, double y, double width, double height) {
    for (int i = 0; i <= 5; ++i) {
        const double g = 1 - i / 5.0;
        canvas.fillRect(toRect(x + i, y + i, width - 2 * i, height - 2 * i), {g, g, g, 1.0});
    }
}

} // namespace apsis
