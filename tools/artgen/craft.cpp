#include "craft.h"

#include <cmath>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace apsis::artgen {

namespace {

// A painter over a transparent square picture whose units run from -0.5 to 0.5 across it, the
// centre at (0, 0) and y down.
struct UnitPainter {
    QImage image;
    QPainter painter;

    explicit UnitPainter(int size) : image(size, size, QImage::Format_ARGB32_Premultiplied) {
        image.fill(Qt::transparent);
        painter.begin(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(size / 2.0, size / 2.0);
        painter.scale(size, size);
        painter.setPen(Qt::NoPen);
    }
    Raster finish() {
        painter.end();
        return fromImage(image);
    }
};

QColor grey(double v) {
    return QColor::fromRgbF(static_cast<float>(v), static_cast<float>(v), static_cast<float>(v));
}

// A gradient across a part x0..x1 wide that makes it look round: dark edges, a bright ridge.
QLinearGradient cylinder(double x0, double x1, const QColor& light) {
    QLinearGradient g(x0, 0, x1, 0);
    g.setColorAt(0.0, light.darker(260));
    g.setColorAt(0.35, light);
    g.setColorAt(0.5, light.lighter(108));
    g.setColorAt(0.7, light.darker(115));
    g.setColorAt(1.0, light.darker(300));
    return g;
}

QPainterPath mirrored(const QPainterPath& path) {
    return QTransform::fromScale(-1, 1).map(path);
}

} // namespace

Raster drawShip(int size) {
    UnitPainter u(size);
    QPainter& p = u.painter;

    // Swept wings, behind the hull.
    QPainterPath wing;
    wing.moveTo(0.05, -0.06);
    wing.lineTo(0.235, 0.22);
    wing.lineTo(0.235, 0.29);
    wing.lineTo(0.05, 0.27);
    wing.closeSubpath();
    for (const QPainterPath& w : {wing, mirrored(wing)}) {
        QLinearGradient g(0, -0.06, 0, 0.29);
        g.setColorAt(0.0, grey(0.75));
        g.setColorAt(1.0, grey(0.42));
        p.fillPath(w, g);
    }
    // Red tips on the wings.
    p.setPen(QPen(QColor::fromRgbF(0.9f, 0.22f, 0.15f), 0.03, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(0.22, 0.205), QPointF(0.22, 0.29));
    p.drawLine(QPointF(-0.22, 0.205), QPointF(-0.22, 0.29));
    p.setPen(Qt::NoPen);

    // The engine bell.
    QPainterPath bell;
    bell.moveTo(-0.045, 0.3);
    bell.lineTo(0.045, 0.3);
    bell.lineTo(0.065, 0.375);
    bell.lineTo(-0.065, 0.375);
    bell.closeSubpath();
    p.fillPath(bell, cylinder(-0.065, 0.065, grey(0.55)));

    // The hull: a long body ending in a pointed nose at the top.
    constexpr double kHalf = 0.075;
    QPainterPath hull;
    hull.moveTo(0, -0.46);
    hull.cubicTo(0.03, -0.42, kHalf, -0.32, kHalf, -0.22);
    hull.lineTo(kHalf, 0.27);
    hull.lineTo(0.055, 0.31);
    hull.lineTo(-0.055, 0.31);
    hull.lineTo(-kHalf, 0.27);
    hull.lineTo(-kHalf, -0.22);
    hull.cubicTo(-kHalf, -0.32, -0.03, -0.42, 0, -0.46);
    p.fillPath(hull, cylinder(-kHalf, kHalf, grey(0.96)));

    // The nose cone in red, and a red stripe round the tail.
    p.save();
    p.setClipPath(hull);
    p.fillRect(QRectF(-0.1, -0.5, 0.2, 0.23),
               cylinder(-kHalf, kHalf, QColor::fromRgbF(0.95f, 0.25f, 0.15f)));
    p.fillRect(QRectF(-0.1, 0.16, 0.2, 0.04),
               cylinder(-kHalf, kHalf, QColor::fromRgbF(0.95f, 0.25f, 0.15f)));
    // Panel seams.
    p.setPen(QPen(grey(0.45), 0.004));
    for (double y : {-0.1, 0.05})
        p.drawLine(QPointF(-0.1, y), QPointF(0.1, y));
    p.restore();

    // The cockpit window just behind the nose.
    QRadialGradient glass(QPointF(-0.012, -0.2), 0.06);
    glass.setColorAt(0.0, QColor::fromRgbF(0.6f, 0.85f, 1.0f));
    glass.setColorAt(0.5, QColor::fromRgbF(0.1f, 0.3f, 0.6f));
    glass.setColorAt(1.0, QColor::fromRgbF(0.02f, 0.06f, 0.2f));
    p.setBrush(glass);
    p.drawEllipse(QPointF(0, -0.18), 0.038, 0.06);
    return u.finish();
}

Raster drawSatellite(int size) {
    UnitPainter u(size);
    QPainter& p = u.painter;

    // Booms out to the two wings of solar cells.
    p.setPen(QPen(grey(0.7), 0.012));
    p.drawLine(QPointF(-0.16, 0), QPointF(0.16, 0));
    p.setPen(Qt::NoPen);
    for (double side : {-1.0, 1.0}) {
        const QRectF panel(side > 0 ? 0.15 : -0.48, -0.09, 0.33, 0.18);
        QLinearGradient g(0, -0.09, 0, 0.09);
        g.setColorAt(0.0, QColor::fromRgbF(0.16f, 0.24f, 0.55f));
        g.setColorAt(1.0, QColor::fromRgbF(0.06f, 0.10f, 0.32f));
        p.fillRect(panel, g);
        p.setPen(QPen(QColor::fromRgbF(0.35f, 0.45f, 0.75f), 0.004));
        for (int i = 1; i < 6; ++i) {
            const double x = panel.left() + panel.width() * i / 6;
            p.drawLine(QPointF(x, panel.top()), QPointF(x, panel.bottom()));
        }
        p.drawLine(QPointF(panel.left(), 0), QPointF(panel.right(), 0));
        p.setPen(QPen(grey(0.8), 0.01));
        p.setBrush(Qt::NoBrush);
        p.drawRect(panel);
        p.setPen(Qt::NoPen);
    }

    // The body, wrapped in gold foil.
    const QRectF body(-0.1, -0.1, 0.2, 0.2);
    QLinearGradient foil(-0.1, -0.1, 0.1, 0.1);
    foil.setColorAt(0.0, QColor::fromRgbF(1.0f, 0.86f, 0.45f));
    foil.setColorAt(0.45, QColor::fromRgbF(0.85f, 0.62f, 0.2f));
    foil.setColorAt(0.55, QColor::fromRgbF(0.95f, 0.76f, 0.35f));
    foil.setColorAt(1.0, QColor::fromRgbF(0.55f, 0.36f, 0.1f));
    p.fillRect(body, foil);
    p.setPen(QPen(QColor::fromRgbF(0.5f, 0.33f, 0.08f), 0.005));
    p.drawLine(QPointF(-0.1, -0.03), QPointF(0.1, 0.02));
    p.drawLine(QPointF(-0.04, -0.1), QPointF(0.02, 0.1));

    // The dish aerial, facing out of the picture, and a whip aerial.
    p.setPen(QPen(grey(0.8), 0.008));
    p.drawLine(QPointF(0.0, -0.1), QPointF(0.0, -0.22));
    p.drawLine(QPointF(0.06, 0.1), QPointF(0.12, 0.26));
    p.setPen(Qt::NoPen);
    QRadialGradient dish(QPointF(-0.02, -0.02), 0.09);
    dish.setColorAt(0.0, grey(1.0));
    dish.setColorAt(0.7, grey(0.78));
    dish.setColorAt(1.0, grey(0.5));
    p.setBrush(dish);
    p.drawEllipse(QPointF(0, 0), 0.075, 0.075);
    p.setBrush(grey(0.35));
    p.drawEllipse(QPointF(0, 0), 0.012, 0.012);
    return u.finish();
}

Raster drawStation(int size) {
    UnitPainter u(size);
    QPainter& p = u.painter;
    const QColor hullGrey = grey(0.86);

    // The truss across the station, carrying the solar arrays at its ends.
    p.fillRect(QRectF(-0.44, -0.014, 0.88, 0.028), grey(0.55));
    p.setPen(QPen(grey(0.8), 0.004));
    for (int i = 0; i < 22; ++i) {
        const double x = -0.44 + 0.04 * i;
        p.drawLine(QPointF(x, -0.014), QPointF(x + 0.04, 0.014));
    }
    p.setPen(Qt::NoPen);
    for (double side : {-1.0, 1.0}) {
        for (double offset : {-0.235, 0.015}) {
            const QRectF array(side > 0 ? 0.39 : -0.47, offset, 0.08, 0.22);
            QLinearGradient g(array.left(), 0, array.right(), 0);
            g.setColorAt(0.0, QColor::fromRgbF(0.55f, 0.38f, 0.12f));
            g.setColorAt(0.5, QColor::fromRgbF(0.85f, 0.63f, 0.25f));
            g.setColorAt(1.0, QColor::fromRgbF(0.55f, 0.38f, 0.12f));
            p.fillRect(array, g);
            p.setPen(QPen(QColor::fromRgbF(0.4f, 0.26f, 0.08f), 0.004));
            for (int i = 1; i < 8; ++i) {
                const double y = array.top() + array.height() * i / 8;
                p.drawLine(QPointF(array.left(), y), QPointF(array.right(), y));
            }
            p.setPen(Qt::NoPen);
        }
    }

    // Thin diagonal spokes, and two long modules from the hub to the ring.
    p.setPen(QPen(grey(0.65), 0.016));
    for (double a : {45.0, 135.0, 225.0, 315.0}) {
        const double r = a * 3.14159265358979 / 180.0;
        p.drawLine(QPointF(0, 0), QPointF(0.31 * std::cos(r), 0.31 * std::sin(r)));
    }
    p.setPen(Qt::NoPen);
    for (double side : {-1.0, 1.0})
        p.fillRect(QRectF(-0.035, side > 0 ? 0.0 : -0.32, 0.07, 0.32),
                   cylinder(-0.035, 0.035, hullGrey));

    // The ring of living quarters, its windows lit.
    QPainterPath ring;
    ring.addEllipse(QPointF(0, 0), 0.37, 0.37);
    ring.addEllipse(QPointF(0, 0), 0.29, 0.29);
    QRadialGradient shade(QPointF(0, 0), 0.37);
    shade.setColorAt(0.78, grey(0.45));
    shade.setColorAt(0.89, hullGrey);
    shade.setColorAt(1.0, grey(0.4));
    p.fillPath(ring, shade);
    p.setPen(QPen(grey(0.4), 0.005));
    for (int i = 0; i < 16; ++i) {
        const double a = 2 * 3.14159265358979 * (i + 0.5) / 16;
        p.drawLine(QPointF(0.29 * std::cos(a), 0.29 * std::sin(a)),
                   QPointF(0.37 * std::cos(a), 0.37 * std::sin(a)));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(QColor::fromRgbF(1.0f, 0.9f, 0.55f));
    for (int i = 0; i < 48; ++i) {
        if (i % 3 == 2)
            continue;
        const double a = 2 * 3.14159265358979 * i / 48;
        p.drawEllipse(QPointF(0.33 * std::cos(a), 0.33 * std::sin(a)), 0.006, 0.006);
    }

    // The hub with its docking port.
    QRadialGradient hub(QPointF(-0.025, -0.025), 0.1);
    hub.setColorAt(0.0, grey(1.0));
    hub.setColorAt(1.0, grey(0.5));
    p.setBrush(hub);
    p.drawEllipse(QPointF(0, 0), 0.085, 0.085);
    p.setBrush(grey(0.3));
    p.drawEllipse(QPointF(0, 0), 0.035, 0.035);
    p.setBrush(grey(0.7));
    p.drawEllipse(QPointF(0, 0), 0.02, 0.02);
    return u.finish();
}

} // namespace apsis::artgen
