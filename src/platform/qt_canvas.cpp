#include "platform/qt_canvas.h"

#include "platform/qt_convert.h"
#include "platform/qt_picture.h"
#include "platform/qt_scaled_pictures.h"
#include "presentation/clip.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QPaintDevice>
#include <QPainterPath>
#include <QPen>

namespace apsis {
namespace {

// Geometry that stays within this distance of the surface goes to Qt as it is; anything larger
// is cut to a window this much larger than the surface first, far enough out that no cut end and
// no mitre at the window's edge can show.
constexpr double kWindowMargin = 64.0;

QSizeF surfaceOf(const QPainter& painter) {
    const QPaintDevice* device = painter.device();
    if (device == nullptr)
        return {};
    const double ratio = device->devicePixelRatioF();
    return {device->width() / ratio, device->height() / ratio};
}

// A 1-point line with square-cut ends and mitred corners, as the game's outlines are drawn.
QPen outlinePen(const QColor& color) {
    QPen pen(color, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setMiterLimit(5.0); // in line widths from the corner: ten times the half width
    return pen;
}

// Takes the pieces of a stroke that lie in the window.
struct PainterPathSink {
    QPainterPath* path;
    void moveTo(ClipPoint p) const { path->moveTo(p.x, p.y); }
    void lineTo(ClipPoint p) const { path->lineTo(p.x, p.y); }
};

// One outline of a path: its corners in painter units, and whether its end joins its start.
struct Outline {
    QPolygonF points;
    bool closed = false;
};

} // namespace

QtCanvas::QtCanvas(QPainter& painter, Size size)
    : painter_(painter), size_(size), window_(windowOf(size)), faces_(painter.device()) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setRenderHint(QPainter::TextAntialiasing);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    scaledPictures().beginRedraw();
    QtPicture::beginRedraw();
}

QtCanvas::QtCanvas(QPainter& painter)
    : QtCanvas(painter, Size{static_cast<float>(surfaceOf(painter).width()),
                             static_cast<float>(surfaceOf(painter).height())}) {}

QRectF QtCanvas::flipped(const Rect& r, Size size) {
    const double height = static_cast<double>(r.height);
    return QRectF(static_cast<double>(r.x),
                  static_cast<double>(size.height) - static_cast<double>(r.y) - height,
                  static_cast<double>(r.width), height)
        .normalized();
}

QRectF QtCanvas::windowOf(Size size) {
    return {-kWindowMargin, -kWindowMargin, static_cast<double>(size.width) + 2.0 * kWindowMargin,
            static_cast<double>(size.height) + 2.0 * kWindowMargin};
}

QRectF QtCanvas::toQt(const Rect& r) const {
    return flipped(r, size_);
}

bool QtCanvas::onSurface(const QRectF& r, double margin) const {
    return r.right() >= -margin && r.left() <= static_cast<double>(size_.width) + margin &&
           r.bottom() >= -margin && r.top() <= static_cast<double>(size_.height) + margin;
}

bool QtCanvas::reaches(const QRectF& r, double margin) const {
    if (!onSurface(r, margin) || !dirty_)
        return onSurface(r, margin);
    // Clamped to the surface first: the rectangle may be millions of points wide.
    const QRectF surface(-margin, -margin, static_cast<double>(size_.width) + 2.0 * margin,
                         static_cast<double>(size_.height) + 2.0 * margin);
    const QRectF near = r.adjusted(-margin, -margin, margin, margin).intersected(surface);
    return dirty_->intersects(near.toAlignedRect());
}

void QtCanvas::fillRect(const Rect& r, const Color& c) {
    if (!finite(r) || !(c.a > 0.0))
        return;
    // A fill is the same whatever lies outside the surface, so it is cut to the surface first.
    const QRectF surface(0.0, 0.0, static_cast<double>(size_.width),
                         static_cast<double>(size_.height));
    const QRectF visible = toQt(r).intersected(surface.adjusted(-1.0, -1.0, 1.0, 1.0));
    if (visible.isEmpty() || !reaches(visible, 1.0))
        return;
    painter_.fillRect(visible, toQColor(c));
}

void QtCanvas::strokePath(const Path& path, const Color& c) {
    drawPath(path, c, false);
}

void QtCanvas::fillPath(const Path& path, const Color& c) {
    drawPath(path, c, true);
}

void QtCanvas::drawPath(const Path& path, const Color& c, bool fill) {
    if (path.elements.empty() || !(c.a > 0.0))
        return;
    // The outlines in painter units, and the ovals, which Qt cuts down well by itself.
    std::vector<Outline> outlines;
    std::vector<QRectF> ovals;
    constexpr double kFar = std::numeric_limits<double>::infinity();
    double left = kFar, right = -kFar, top = kFar, bottom = -kFar;
    const auto extend = [&](const QRectF& r) {
        left = std::min(left, r.left());
        right = std::max(right, r.right());
        top = std::min(top, r.top());
        bottom = std::max(bottom, r.bottom());
    };
    for (const Path::Element& element : path.elements) {
        if (!finite(element.rect))
            return; // a shape with a point at infinity has no sensible picture
        const QRectF r = toQt(element.rect);
        extend(r);
        switch (element.kind) {
        case Path::Kind::MoveTo:
            outlines.push_back({{r.topLeft()}, false});
            break;
        case Path::Kind::LineTo:
            // A line without a start begins where it ends.
            if (outlines.empty() || outlines.back().closed)
                outlines.push_back({{}, false});
            outlines.back().points.append(r.topLeft());
            break;
        case Path::Kind::Oval:
            ovals.push_back(r);
            break;
        case Path::Kind::Rectangle:
            outlines.push_back(
                {QPolygonF({r.topLeft(), r.topRight(), r.bottomRight(), r.bottomLeft()}), true});
            break;
        }
    }
    const QRectF bounds(QPointF(left, top), QPointF(right, bottom));
    if (!reaches(bounds, fill ? 1.0 : kStrokeReach))
        return;

    const bool cut = !window_.contains(bounds);
    const ClipWindow clipWindow{window_.left(), window_.top(), window_.right(), window_.bottom()};
    QPainterPath qtPath;
    qtPath.setFillRule(Qt::WindingFill);
    for (const Outline& outline : outlines) {
        if (!cut) {
            qtPath.addPolygon(outline.points);
            if (outline.closed)
                qtPath.closeSubpath();
        } else if (fill) {
            std::vector<ClipPoint> points;
            points.reserve(static_cast<std::size_t>(outline.points.size()));
            for (const QPointF& p : outline.points)
                points.push_back({p.x(), p.y()});
            const std::vector<ClipPoint> inside = clipPolygon(points, clipWindow);
            if (inside.size() >= 3) {
                QPolygonF kept;
                kept.reserve(static_cast<qsizetype>(inside.size()));
                for (const ClipPoint& p : inside)
                    kept.append(QPointF(p.x, p.y));
                qtPath.addPolygon(kept);
            }
        } else {
            // A stroke keeps its pieces inside the window, joined where no cut parts them.
            ClippedPolyline line(clipWindow, PainterPathSink{&qtPath});
            for (const QPointF& p : outline.points)
                line.add({p.x(), p.y()});
            if (outline.closed && !outline.points.isEmpty())
                line.add({outline.points.front().x(), outline.points.front().y()});
        }
    }
    for (const QRectF& oval : ovals)
        qtPath.addEllipse(oval);
    if (fill)
        painter_.fillPath(qtPath, toQColor(c));
    else
        painter_.strokePath(qtPath, outlinePen(toQColor(c)));
}

} // namespace apsis
