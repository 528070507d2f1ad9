#pragma once

#include "presentation/canvas.h"

#include <array>
#include <string>
#include <unordered_map>

#include <QFont>
#include <QFontMetricsF>
#include <QHashFunctions>
#include <QStringList>

class QPaintDevice;

namespace apsis {

// A font of the game at one size, with the measures that lay out its texts. A text's box is its
// widest line across and, from the top of the first line to the bottom of the last, its lines
// stacked lineSpacing apart, each lineHeight tall.
struct Face {
    QFont font;
    QFontMetricsF metrics;
    double ascent = 0.0;      // top of a line's box to its baseline, points
    double lineHeight = 0.0;  // one line's box, points
    double lineSpacing = 0.0; // top of one line to the top of the next, points

    Face(const QFont& font, const QPaintDevice* device);
    // The box of a text split into lines; an empty text has no box at all.
    QSizeF boxOf(const QStringList& lines) const;
    // The advance of one line, points. Most texts of the display stand unchanged from frame to
    // frame, so their widths are kept rather than shaped anew every time.
    double widthOf(const QString& line) const;

  private:
    // The sum of the characters' own advances, for a line in a face of one pitch that holds only
    // printable ASCII; below zero when it needs shaping.
    double sumOfAdvances(const QString& line) const;

    bool fixedPitch_ = false;
    // Advances of the printable ASCII characters, from the space on; below zero until measured.
    mutable std::array<double, 95> advances_;
    mutable std::unordered_map<QString, double> widths_;
};

// The face a family of the game is drawn in, size in points. One point is one unit of the
// painter, whatever the device's dots per inch.
QFont fontFor(FontFamily family, float size);

// The lines of a game text: UTF-8, broken at line feeds. A final line feed ends in an empty line,
// as it does on the page.
QStringList linesOf(const std::string& text);

// The faces for one surface: a frame draws some twenty texts in half a dozen styles. Faces are
// kept for the whole run, shared by every surface of the same dots per inch, so that fonts are
// not looked up again in every redraw.
class FaceCache {
  public:
    explicit FaceCache(const QPaintDevice* device) : device_(device) {}
    const Face& face(FontFamily family, float size);
    // The box a game text takes in its style: what the canvas draws, and what the view's
    // note-taking pass expects it to cover.
    Size measure(const std::string& text, const TextStyle& style);

  private:
    const QPaintDevice* device_;
};

} // namespace apsis
