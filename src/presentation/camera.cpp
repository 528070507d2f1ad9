#include "presentation/canvas.h"
#include "presentation/draw_view.h"

namespace apsis {

DrawView::DrawView(double viewScale, const Position& center, const Stellar& target)
    : viewScale(viewScale), viewCenter(center), viewTarget(target) {}

void DrawView::initSizes() {
    const Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    const Size size = canvas->size();
    // A surface without area keeps the last sizes, so the scale never becomes infinite.
    if (!(size.width > 0.0f) || !(size.height > 0.0f))
        return;
    viewWidth = size.width;
    viewHeight = size.height;
    viewScaleH = viewHeight * (viewScale / viewWidth);
}

ViewPoint DrawView::worldToView(double x, double y) const {
    return {viewWidth * (x - (viewCenter.x - viewScale / 2)) / viewScale,
            viewHeight * (y - (viewCenter.y - viewScaleH / 2)) / viewScaleH};
}

double DrawView::lengthToView(double metres) const {
    return metres * viewWidth / viewScale;
}

} // namespace apsis
