#pragma once

#include "platform/qt_fonts.h"
#include "platform/qt_magnify.h"
#include "presentation/canvas.h"

#include <optional>

#include <QPainter>
#include <QRectF>
#include <QRegion>
#include <QTransform>

namespace apsis {

// The game's drawing primitives over a QPainter. The game draws y upwards from the bottom-left
// corner; Qt draws y downwards from the top-left, so this is the one place that turns the view
// upside down. One point of the game is one unit of the painter.
//
// Geometry that is not finite is skipped, and geometry that lies wholly outside the surface is
// not handed to Qt at all: at deep zoom the planets' markers stand a million million points away,
// where Qt's fixed-point text layout overflows and its rasterizer crawls.
class QtCanvas final : public Canvas {
  public:
    // Draws with painter over a surface of the given size, points.
    QtCanvas(QPainter& painter, Size size);
    // The surface is the painter's whole device.
    explicit QtCanvas(QPainter& painter);

    // Draws only what reaches into region (painter units): the rest of the surface is known to
    // show this frame already. Without it, everything is drawn.
    void setDirtyRegion(QRegion region) { dirty_ = std::move(region); }

    Size size() const override { return size_; }
    void fillRect(const Rect& r, const Color& c) override;
    void strokePath(const Path& path, const Color& c) override;
    void fillPath(const Path& path, const Color& c) override;
    void drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                     double opacity) override;
    Size measureText(const std::string& text, const TextStyle& style) override;
    void drawText(const std::string& text, Point at, const TextStyle& style) override;
    void drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) override;

    // How drawPicture would sample the picture on a surface of the given size, through a painter
    // of the given device transform and no world transform of its own, when it would draw it
    // magnified: what decides the pixels it writes. Nothing when it would draw it otherwise.
    static std::optional<MagnifiedSampling> magnifiedSampling(const Picture* picture,
                                                              const Rect& source, const Rect& dest,
                                                              Size size, const QTransform& device);

  private:
    // A view rectangle (y upwards) on a surface of the given size as a painter rectangle (y
    // downwards).
    static QRectF flipped(const Rect& r, Size size);
    // The surface of the given size widened on every side by a margin: geometry reaching beyond
    // it is cut to it.
    static QRectF windowOf(Size size);
    // The part of a picture drawn, in its pixels (y downwards), and where, in painter units on a
    // surface of the given size, cut to the window when it reaches far beyond; false when it
    // draws nothing there.
    static bool placePicture(const Picture& picture, const Rect& source, const Rect& dest,
                             Size size, QRectF& from, QRectF& to);
    // A view rectangle (y upwards) as a painter rectangle (y downwards).
    QRectF toQt(const Rect& r) const;
    // Whether a painter rectangle reaches into the surface widened by margin on every side.
    bool onSurface(const QRectF& r, double margin) const;
    // Whether a painter rectangle reaches into the surface widened by margin on every side, and
    // into the region being redrawn.
    bool reaches(const QRectF& r, double margin) const;
    void drawPath(const Path& path, const Color& c, bool fill);
    // Draws from (image pixels) into to (painter units) from a copy scaled before, when the
    // picture has been drawn at this size in the last redraw too; false when it has not.
    bool drawScaledBefore(const QImage& image, const QRectF& from, const QRectF& to);
    // Draws the lines of a text with the top of the first line's box at top (painter units).
    void drawLines(const QStringList& lines, double left, double top, const Face& face,
                   const TextStyle& style);

    QPainter& painter_;
    Size size_;
    // The surface widened on every side by a margin: geometry reaching beyond it is cut to it.
    QRectF window_;
    FaceCache faces_;
    std::optional<QRegion> dirty_;
};

} // namespace apsis
