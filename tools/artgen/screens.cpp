#include "screens.h"

#include "backdrop.h"
#include "bodies.h"
#include "presentation/menu_layout.h"

#include <array>

#include <QLinearGradient>
#include <QPainterPath>

namespace apsis::artgen {

namespace {

constexpr std::array<const char*, 4> kEntries = {"About", "Instructions", "Practice", "New Game"};

// Menu band k, where the game lays the highlighted entry (y downwards here).
QRect band(int k) {
    const int w = kScreenWidth;
    const int h = kScreenHeight;
    return {menu::kLeftFifths * w / 5, menu::topEighths(k) * h / 8, menu::kWidthFifths * w / 5,
            h / 8};
}

QFont entryFont() {
    return displayFont(46);
}

// Earth rising in the lower right corner, turned to show its lands rather than its pole, with
// the Moon.
void drawPlanets(QPainter& painter, int scale) {
    constexpr int kEarth = 720;
    QImage earth = toImage(drawEarth(kEarth * scale), false);
    earth.setDevicePixelRatio(scale);
    painter.save();
    painter.translate(1180, 930);
    painter.rotate(40);
    painter.drawImage(QPointF(-kEarth / 2.0, -kEarth / 2.0), earth);
    painter.restore();
    constexpr int kMoon = 64;
    QImage moon = toImage(drawMoon(kMoon * scale), false);
    moon.setDevicePixelRatio(scale);
    painter.drawImage(QPointF(1010 - kMoon / 2.0, 470 - kMoon / 2.0), moon);
}

QImage drawSplash(int scale) {
    QImage image = drawSky(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawPlanets(painter, scale);
    drawTitle(painter, QPointF(560, 300), 120);
    drawCentred(painter, "A GAME OF ORBITAL FLIGHT", QPointF(560, 440), displayFont(26),
                QColor::fromRgbF(0.7f, 0.8f, 0.95f));
    return image;
}

// The menu: the name at the top, the four entries each centred in its band, and a hint below.
QImage drawMenu(int scale) {
    QImage image = drawSky(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawTitle(painter, QPointF(kScreenWidth / 2.0, 104), 78);
    for (int k = 1; k <= 4; ++k) {
        drawCentred(painter, kEntries[static_cast<std::size_t>(k - 1)], band(k).toRectF().center(),
                    entryFont(), QColor::fromRgbF(0.55f, 0.65f, 0.82f));
    }
    drawCentred(painter, "Arrow keys choose, any other key opens", QPointF(kScreenWidth / 2.0, 690),
                textFont(20), QColor::fromRgbF(0.5f, 0.55f, 0.65f));
    return image;
}

// Entry k highlighted: the same sky, a lit bar and the entry in bright letters, the size of its
// band.
QImage drawBand(const QImage& sky, int k) {
    const QRect area = band(k);
    const auto scale = static_cast<int>(sky.devicePixelRatio());
    QImage image = sky.copy(QRect(area.topLeft() * scale, area.size() * scale));
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(QPointF(0, 0), QSizeF(area.size()));
    const QRectF bar = whole.adjusted(14, 14, -14, -14);
    QLinearGradient glow(bar.topLeft(), bar.topRight());
    glow.setColorAt(0.0, QColor::fromRgbF(0.1f, 0.3f, 0.8f, 0.0f));
    glow.setColorAt(0.3, QColor::fromRgbF(0.1f, 0.3f, 0.8f, 0.45f));
    glow.setColorAt(0.7, QColor::fromRgbF(0.1f, 0.3f, 0.8f, 0.45f));
    glow.setColorAt(1.0, QColor::fromRgbF(0.1f, 0.3f, 0.8f, 0.0f));
    QPainterPath shape;
    shape.addRoundedRect(bar, 18, 18);
    painter.fillPath(shape, glow);
    QLinearGradient edge(bar.topLeft(), bar.topRight());
    edge.setColorAt(0.0, QColor::fromRgbF(0.5f, 0.8f, 1.0f, 0.0f));
    edge.setColorAt(0.5, QColor::fromRgbF(0.6f, 0.85f, 1.0f, 0.95f));
    edge.setColorAt(1.0, QColor::fromRgbF(0.5f, 0.8f, 1.0f, 0.0f));
    painter.strokePath(shape, QPen(QBrush(edge), 2.0));
    const QPointF centre = whole.center();
    // Markers either side of the entry.
    for (double side : {-1.0, 1.0}) {
        const double x = centre.x() + side * 250;
        QPainterPath marker;
        marker.moveTo(x + side * 8, centre.y() - 12);
        marker.lineTo(x - side * 8, centre.y());
        marker.lineTo(x + side * 8, centre.y() + 12);
        marker.closeSubpath();
        painter.fillPath(marker, QColor::fromRgbF(0.75f, 0.9f, 1.0f));
    }
    drawCentred(painter, kEntries[static_cast<std::size_t>(k - 1)], centre, entryFont(),
                QColor::fromRgbF(1.0f, 1.0f, 1.0f));
    return image;
}

} // namespace

std::vector<Screen> drawScreens(int scale) {
    std::vector<Screen> screens;
    screens.push_back({"splash", drawSplash(scale)});
    screens.push_back({"menu", drawMenu(scale)});
    const QImage sky = drawSky(scale);
    for (int k = 1; k <= 4; ++k)
        screens.push_back({menu::kBandNames[static_cast<std::size_t>(k - 1)], drawBand(sky, k)});
    screens.push_back({"about", drawAbout(scale)});
    screens.push_back({"instructions", drawInstructions(scale)});
    return screens;
}

} // namespace apsis::artgen
