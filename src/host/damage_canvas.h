#pragma once

#include "platform/qt_fonts.h"
#include "presentation/canvas.h"

#include <QRegion>

class QPaintDevice;

namespace apsis {

// A canvas that draws nothing and notes where a frame would draw: the part of the view that the
// frame covers, in the widget's own coordinates (y downwards). Texts are measured in the same
// faces as on screen. The view repaints only where the last frame or this one drew, so the black
// between bodies is not painted again thirty times a second.
class DamageCanvas final : public Canvas {
  public:
    DamageCanvas(const QPaintDevice* device, Size size) : size_(size), faces_(device) {}

    Size size() const override { return size_; }
    void fillRect(const Rect& r, const Color&) override { add(r, 1.0); }
    void strokePath(const Path& path, const Color&) override;
    void fillPath(const Path& path, const Color&) override;
    void drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                     double opacity) override;
    Size measureText(const std::string& text, const TextStyle& style) override;
    void drawText(const std::string& text, Point at, const TextStyle& style) override;
    void drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) override;

    // Everything noted so far, within the view.
    const QRegion& region() const { return region_; }

  private:
    // Notes a rectangle of the view (y upwards), widened by margin points on every side.
    void add(const Rect& r, double margin);
    void addPath(const Path& path, double margin);

    Size size_;
    FaceCache faces_;
    QRegion region_;
};

} // namespace apsis
