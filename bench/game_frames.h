#pragma once

#include "control/controller.h"
#include "host/damage_canvas.h"
#include "platform/qt_canvas.h"
#include "platform/qt_resources.h"

#include <memory>
#include <vector>

#include <QImage>
#include <QPainter>
#include <QRegion>

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
// drawing. Before the first of a run, drawPicturesDecoded.
inline void drawFrame(QImage& buffer, Controller& c) {
    buffer.fill(Qt::black);
    QPainter painter(&buffer);
    QtCanvas canvas(painter);
    CanvasFocus focus(canvas);
    c.drawRect();
    painter.end();
}

// A redraw as the window makes it after a tick or a key: a pass that notes what the frame draws
// and finds where it differs from the frame noted in before, then the paint, black first, of the
// whole view after a key (wholeView) or else only of that region, clipped to it as Qt clips a
// widget's paint.
inline void redrawAsTheWindow(QImage& buffer, Controller& c,
                              std::vector<DamageCanvas::Mark>& before, bool wholeView) {
    const Size size{static_cast<float>(buffer.width()), static_cast<float>(buffer.height())};
    DamageCanvas notes(&buffer, size);
    {
        CanvasFocus focus(notes);
        c.drawRect();
    }
    const QRegion changed = notes.changedSince(before);
    before = notes.marks();
    QPainter painter(&buffer);
    if (!wholeView)
        painter.setClipRegion(changed);
    painter.fillRect(buffer.rect(), Qt::black);
    QtCanvas canvas(painter, size);
    if (!wholeView)
        canvas.setDirtyRegion(changed);
    CanvasFocus focus(canvas);
    c.drawRect();
}

// One redraw, and then the wait for the pictures it asked for to be decoded at the sizes drawn:
// what follows measures drawing, not decoding on the other thread.
inline void drawPicturesDecoded(QImage& buffer, Controller& c) {
    drawFrame(buffer, c);
    QtPicture::waitForDecodes();
}

} // namespace apsis::bench
