#pragma once

#include <QIODevice>
#include <QImage>
#include <QSize>

namespace apsis {

// What reading a GIF gave: its lines, or why not.
struct GifLines {
    // The lines asked for, premultiplied; null when the file could not give them.
    QImage image;
    // The file is a GIF of a kind left to Qt's reader (interlaced, a picture that does not fill
    // its screen, a size that is no whole fraction of its own), or no GIF at all; nothing was
    // read from it.
    bool unusual = false;
};

// Lines top to top + lines of the first picture of a GIF, at size, which divides the picture's
// own size (own, as its header must give it) a whole number of times each way. The file is read
// as it is decoded, and only the lines asked for are kept: a large sheet costs the pixels of its
// band, never its whole. A pixel at a smaller size is the mean of those it stands for, in
// premultiplied colour. Reading stops at the band's last line. A file that is broken, cut short
// or not of the size announced gives a null image.
GifLines readGifLines(QIODevice& file, QSize own, QSize size, int top, int lines);

} // namespace apsis
