#pragma once

#include <vector>

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QSize>

namespace apsis {

// Pictures scaled once for a size they keep being drawn at.
//
// Scaling a sprite frame while drawing it costs Qt a filtered fetch for every pixel it covers:
// at 200 m across the view the station and the craft cover a million pixels, and scaling them
// costs more than the rest of the frame together. A frame drawn at one size in two redraws is
// kept scaled and then only copied, which is ten times cheaper; while the view zooms every size is
// new and costs what a filtered draw would. Every draw of a frame goes this one way, so its pixels
// never depend on whether it was drawn before.
class ScaledPictures {
  public:
    // Begins a redraw; what was not drawn in the last two is let go.
    void beginRedraw();
    // source (pixels of image) scaled to size pixels, or a null image when the size is too large
    // or too small to keep.
    QImage lookUp(const QImage& image, const QRect& source, QSize size);

  private:
    struct Entry {
        qint64 image; // QImage::cacheKey of the picture
        QRect source;
        QSize size;
        QImage scaled; // null until asked for a second time
        int lastRedraw;
    };
    std::vector<Entry> entries_;
    int redraw_ = 0;
};

// The scaled pictures of the process: one thread draws, and the pictures live as long as it.
ScaledPictures& scaledPictures();

// Qt hands a picture drawn over 96 lines or more to its worker threads in pieces and waits for
// them; for the pictures of a frame that costs more than it saves. These draw the same pixels in
// bands of fewer lines, one after the other.

// Draws image unscaled with its top-left corner at topLeft, painter units.
void blitInBands(QPainter& painter, QPoint topLeft, const QImage& image);
// Draws from (pixels of image) scaled into to (painter units).
void drawInBands(QPainter& painter, const QRectF& to, const QImage& image, const QRectF& from);

} // namespace apsis
