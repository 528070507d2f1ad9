#pragma once

#include "platform/qt_fonts.h"
#include "platform/qt_magnify.h"
#include "presentation/canvas.h"

#include <cstdint>
#include <memory>
#include <vector>

#include <QRect>
#include <QRegion>
#include <QTransform>

class QPaintDevice;

namespace apsis {

// A canvas that draws nothing and notes what a frame would draw: each primitive with its
// arguments, and the part of the view it covers, in the widget's own coordinates (y downwards).
// Texts are measured in the same faces as on screen. Comparing two frames' notes tells where the
// picture can differ: the view repaints only there, so the black between bodies and the parts of
// the display that stand still are not painted again thirty times a second.
class DamageCanvas final : public Canvas {
  public:
    // One primitive: what it was, with every argument, and where its ink can reach.
    // A picture drawn magnified is noted by where its pixels sample it instead: drawn again,
    // the same picture is repainted only in the columns and lines it samples differently. A
    // planet filling the view moves a ten-thousandth of a pixel a tick, and few of them change.
    struct Mark {
        std::uint64_t signature;
        QRect bounds;
        std::shared_ptr<const MagnifiedSampling> sampling;
    };

    // Notes the frame as a painter over device draws it, whose device transform is, unless
    // told otherwise, a scale by the device's pixel ratio.
    DamageCanvas(const QPaintDevice* device, Size size);
    // The device transform of the painter that draws the frame.
    void setDeviceTransform(const QTransform& device) { device_ = device; }

    Size size() const override { return size_; }
    void fillRect(const Rect& r, const Color& c) override;
    void strokePath(const Path& path, const Color& c) override;
    void fillPath(const Path& path, const Color& c) override;
    void drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                     double opacity) override;
    Size measureText(const std::string& text, const TextStyle& style) override;
    void drawText(const std::string& text, Point at, const TextStyle& style) override;
    void drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) override;

    const std::vector<Mark>& marks() const { return marks_; }
    // Where this frame and the one noted in `before` can differ: the ground of every primitive
    // that only one of them draws.
    QRegion changedSince(const std::vector<Mark>& before) const;

    // The window sends a repainted region to the X server one rectangle at a time, a request
    // each, and a frame's changes come as many small rectangles close together: a moving craft's
    // outline and marker, a line of text. Rectangles are joined into their common bounding box
    // wherever it covers little more than they do apart; repainting more of the view draws the
    // same pixels there.
    static void joinNeighbours(std::vector<QRect>& rects);

  private:
    // Pixels that cost about what one more request does.
    static constexpr qint64 kAreaOfARequest = qint64{64} * 64;
    // Beyond this many rectangles, a frame that changes all over, they are left as they are.
    static constexpr std::size_t kMostJoined = 64;

    // Notes a primitive covering a rectangle of the view (y upwards), widened by margin points;
    // false when it lies wholly outside the view and is not noted.
    bool add(std::uint64_t signature, const Rect& r, double margin);
    // Adds the part of the view, widget coordinates, where the pixels of a magnified picture noted
    // before and now can differ.
    void addChanged(const Mark& before, const Mark& now, std::vector<QRect>& changed) const;
    // The ground a path covers, y upwards; false for an empty path.
    static bool boundsOf(const Path& path, Rect& bounds);

    Size size_;
    FaceCache faces_;
    QTransform device_;
    std::vector<Mark> marks_;
};

} // namespace apsis
