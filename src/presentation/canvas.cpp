#include "presentation/canvas.h"

namespace apsis {
namespace {

Canvas* focused = nullptr;

} // namespace

Canvas* currentCanvas() {
    return focused;
}

CanvasFocus::CanvasFocus(Canvas& canvas) : previous_(focused) {
    focused = &canvas;
}

CanvasFocus::~CanvasFocus() {
    focused = previous_;
}

} // namespace apsis
