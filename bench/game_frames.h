#pragma once

#include "control/controller.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <memory>

#include <QImage>
#include <QPainter>

// What the frame benchmarks share: the game's own pictures and texts, and a redraw as the window
// makes it.
namespace apsis::bench {

// The resource folder beside the binary, installed once for the whole run.
inline void useGameResources() {
    static const bool installed = [] {
        installResources(std::make_unique<QtResources>(findResourceFolder(executableFolder())));
        return true;
    }();
    (void)installed;
}

// One redraw into the back buffer: fill black, a painter and a canvas over it, the controller's
// drawing.
inline void drawFrame(QImage& buffer, Controller& c) {
    buffer.fill(Qt::black);
    QPainter painter(&buffer);
    QtCanvas canvas(painter);
    CanvasFocus focus(canvas);
    c.drawRect();
    painter.end();
}

} // namespace apsis::bench
