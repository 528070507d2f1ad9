#include "physics/position.h"
#include "presentation/canvas.h"
#include "presentation/draw_view.h"

#include <cmath>

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

void DrawView::moveCamera(double timeStep, bool isRunning) {
    // Glide: 12% of the way towards the followed body in every frame, so a change of body is a
    // smooth pan rather than a jump.
    const double d = std::sqrt(sqDist(viewCenter, viewTarget.pos));
    const double theta =
        std::atan2(viewTarget.pos.y - viewCenter.y, viewTarget.pos.x - viewCenter.x);
    viewCenter.x += std::cos(theta) * d * 0.12;
    viewCenter.y += std::sin(theta) * d * 0.12;
    // Lead: the centre travels with the body over the frame's simulated time, so a fast body is
    // not left behind by the glide alone.
    if (isRunning) {
        viewCenter.x += viewTarget.pos.vx * timeStep * 0.88;
        viewCenter.y += viewTarget.pos.vy * timeStep * 0.88;
    }
}

} // namespace apsis
