#include "icon.h"

#include "bodies.h"
#include "craft.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>

namespace apsis::artgen {

QImage drawIcon(int size) {
    QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double s = size;
    const QPointF centre(s / 2, s / 2);

    // The orbit, tilted: its far half passes behind the planet, its near half in front.
    QTransform tilt;
    tilt.translate(centre.x(), centre.y());
    tilt.rotate(-24.0);
    QPainterPath orbit;
    orbit.addEllipse(QPointF(0, 0), s * 0.47, s * 0.17);
    orbit = tilt.map(orbit);
    const QPen ring(QColor(150, 200, 255, 230), s * 0.022, Qt::SolidLine, Qt::RoundCap);

    painter.save();
    painter.setClipRect(QRectF(0, 0, s, s / 2).translated(0, -s * 0.02));
    painter.strokePath(orbit, ring);
    painter.restore();

    const double planet = s * 0.62;
    const QImage earth = toImage(drawEarth(static_cast<int>(planet) * 2), false);
    painter.drawImage(QRectF(centre.x() - planet / 2, centre.y() - planet / 2, planet, planet),
                      earth);

    painter.save();
    painter.setClipRect(QRectF(0, s / 2, s, s / 2).translated(0, -s * 0.02));
    painter.strokePath(orbit, ring);
    painter.restore();

    // The craft on the near side of the orbit, nose along its way.
    const double craft = s * 0.30;
    const QImage ship = toImage(drawShip(static_cast<int>(craft) * 2), false);
    painter.translate(tilt.map(QPointF(-s * 0.30, s * 0.13)));
    painter.rotate(-105.0);
    painter.drawImage(QRectF(-craft / 2, -craft / 2, craft, craft), ship);
    painter.end();
    return icon;
}

} // namespace apsis::artgen
