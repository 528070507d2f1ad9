#pragma once

#include <vector>

#include <QImage>
#include <QRect>
#include <QSize>

namespace apsis {

// Pictures scaled once for a size they keep being drawn at.
//
// Scaling a sprite frame while drawing it costs Qt a filtered fetch for every pixel it covers:
// at 200 m across the view the station and the craft cover a million pixels, and scaling them
// costs more than the rest of the frame together. A frame drawn at the same size in two redraws
// running is scaled once and then only copied, which is ten times cheaper. While the view zooms
// every size is new, so nothing is scaled twice over: those draws scale on the fly as before.
class ScaledPictures {
  public:
    // Begins a redraw; what was not drawn in the last two is let go.
    void beginRedraw();
    // source (pixels of image) scaled to size pixels, or a null image when it is not worth
    // keeping yet: the first time a size is asked for, or when it is too large or too small.
    QImage lookUp(const QImage& image, const QRect& source, QSize size);

  private:
    struct Entry {
        qint64 image; // QImage::cacheKey of the picture
        QRect source;
        QSize size;
        QImage scaled; // null until asked for twice
        int lastRedraw;
    };
    std::vector<Entry> entries_;
    int redraw_ = 0;
};

// The scaled pictures of the process: one thread draws, and the pictures live as long as it.
ScaledPictures& scaledPictures();

} // namespace apsis
