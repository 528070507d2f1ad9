#include "icon.h"

#include "bodies.h"
#include "craft.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QTransform>
#include <QtMath>

namespace apsis::artgen {

namespace {

// Below this size the globe's coasts and the craft's fins blur into a smudge: plain shapes
// take their place.
constexpr int kSmallIcon = 48;

// The planet in plain shapes: a sea lit from the upper left, one continent, a dark rim that
// parts it from any background.
void drawPlainPlanet(QPainter& painter, QPointF centre, double radius, double px) {
    const QRectF disc(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QRadialGradient sea(centre + QPointF(-0.35, -0.4) * radius, 1.3 * radius);
    sea.setColorAt(0.0, QColor(110, 180, 255));
    sea.setColorAt(0.55, QColor(30, 100, 200));
    sea.setColorAt(1.0, QColor(8, 34, 96));
    painter.setPen(Qt::NoPen);
    painter.setBrush(sea);
    painter.drawEllipse(disc);

    QPainterPath land;
    land.moveTo(centre + QPointF(-0.55, -0.55) * radius);
    land.cubicTo(centre + QPointF(-0.1, -0.85) * radius, centre + QPointF(0.25, -0.5) * radius,
                 centre + QPointF(0.05, -0.15) * radius);
    land.cubicTo(centre + QPointF(-0.1, 0.15) * radius, centre + QPointF(-0.45, 0.2) * radius,
                 centre + QPointF(-0.6, -0.1) * radius);
    land.closeSubpath();
    QPainterPath clip;
    clip.addEllipse(disc);
    painter.fillPath(land.intersected(clip), QColor(70, 150, 60));

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(4, 16, 48, 220), px));
    painter.drawEllipse(disc.adjusted(px / 2, px / 2, -px / 2, -px / 2));
}

// The craft in plain shapes, pointing up: a pale arrowhead with a dark edge, and a flame behind
// when there are pixels enough to show it. The edge is thinner than a pixel on the smallest
// icons, where a whole one would swallow the arrowhead.
void drawPlainCraft(QPainter& painter, double size, double px) {
    const double h = size / 2;
    if (size >= 10 * px) {
        QPainterPath flame;
        flame.moveTo(-0.16 * h, 0.35 * h);
        flame.lineTo(0.0, 0.95 * h);
        flame.lineTo(0.16 * h, 0.35 * h);
        flame.closeSubpath();
        painter.fillPath(flame, QColor(255, 170, 40));
    }

    QPainterPath hull;
    hull.moveTo(0.0, -h);
    hull.lineTo(0.62 * h, 0.7 * h);
    hull.lineTo(0.0, 0.35 * h);
    hull.lineTo(-0.62 * h, 0.7 * h);
    hull.closeSubpath();
    const double edge = size < 10 * px ? 0.6 * px : px;
    painter.setPen(QPen(QColor(20, 24, 36), edge, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(QColor(240, 242, 248));
    painter.drawPath(hull);
}

} // namespace

// How the icon is laid out at one size, in fractions of its side: where the planet stands, the
// orbit's half-axes, the planet's and the craft's sizes, how far round the orbit the craft is (in
// degrees from the orbit's right end, on the near side), and which of them are plain shapes.
struct Layout {
    QPointF centre;
    double across;
    double deep;
    double planet;
    double craft;
    double along;
    bool plainPlanet;
    bool plainCraft;
};

Layout layoutFor(int size) {
    // The smallest icons give the craft room of its own in the lower left: the planet moves up
    // and right, and the craft clear of it.
    if (size < kSmallIcon)
        return {{0.60, 0.40}, 0.38, 0.15, 0.50, 0.50, 185.0, true, true};
    if (size < 64)
        return {{0.5, 0.5}, 0.47, 0.17, 0.62, 0.36, 130.0, false, true};
    return {{0.5, 0.5}, 0.47, 0.17, 0.62, size < 128 ? 0.34 : 0.30, 130.0, false, false};
}

QImage drawIcon(int size) {
    QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double s = size;
    const Layout layout = layoutFor(size);
    const QPointF centre = layout.centre * s;
    // One pixel at the icon's own size: the thinnest line that still shows.
    const double px = 1.0;

    // The orbit, tilted: its far half passes behind the planet, its near half in front. A dark
    // edge keeps it apart from light backgrounds.
    QTransform tilt;
    tilt.translate(centre.x(), centre.y());
    tilt.rotate(-24.0);
    QPainterPath orbit;
    orbit.addEllipse(QPointF(0, 0), s * layout.across, s * layout.deep);
    orbit = tilt.map(orbit);
    const double ringWidth = std::max(s * 0.024, 1.4 * px);
    const QPen ring(QColor(150, 205, 255), ringWidth, Qt::SolidLine, Qt::RoundCap);
    const QPen edge(QColor(10, 20, 50, 150), ringWidth + 1.2 * px, Qt::SolidLine, Qt::RoundCap);
    auto strokeHalf = [&](double top) {
        painter.save();
        painter.setClipRect(QRectF(0, top - s * 0.02, s, s));
        painter.strokePath(orbit, edge);
        painter.strokePath(orbit, ring);
        painter.restore();
    };

    strokeHalf(centre.y() - s);
    const double planet = s * layout.planet;
    if (layout.plainPlanet) {
        drawPlainPlanet(painter, centre, planet / 2, px);
    } else {
        const QImage earth = toImage(drawEarth(static_cast<int>(planet) * 2), false);
        painter.drawImage(QRectF(centre.x() - planet / 2, centre.y() - planet / 2, planet, planet),
                          earth);
    }
    strokeHalf(centre.y());

    // The craft on the near side of the orbit, nose along its way: across in front of the planet.
    const double craft = s * layout.craft;
    const double along = qDegreesToRadians(layout.along);
    const QPointF place(std::cos(along) * s * layout.across, std::sin(along) * s * layout.deep);
    const QPointF way =
        tilt.map(QPointF(std::sin(along) * layout.across, -std::cos(along) * layout.deep)) -
        tilt.map(QPointF(0, 0));
    painter.translate(tilt.map(place));
    painter.rotate(qRadiansToDegrees(std::atan2(way.x(), -way.y())));
    if (layout.plainCraft) {
        drawPlainCraft(painter, craft, px);
    } else {
        const QImage ship = toImage(drawShip(static_cast<int>(craft) * 2), false);
        painter.drawImage(QRectF(-craft / 2, -craft / 2, craft, craft), ship);
    }
    painter.end();
    return icon;
}

} // namespace apsis::artgen
