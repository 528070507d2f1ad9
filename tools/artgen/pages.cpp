#include "backdrop.h"
#include "screens.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainterPath>

namespace apsis::artgen {

namespace {

const QColor kText = QColor::fromRgbF(0.84f, 0.88f, 0.96f);
const QColor kHeading = QColor::fromRgbF(0.5f, 0.72f, 1.0f);
const QColor kQuiet = QColor::fromRgbF(0.5f, 0.55f, 0.65f);

// The pages of text show the sky dimmed, so that the stars do not tangle with the letters.
QImage dimmedSky(int scale) {
    QImage image = drawSky(scale);
    QPainter painter(&image);
    painter.fillRect(QRect(0, 0, kScreenWidth, kScreenHeight),
                     QColor::fromRgbF(0.0f, 0.0f, 0.0f, 0.55f));
    return image;
}

void drawFooter(QPainter& painter) {
    drawCentred(painter, "Press any key to return to the menu", QPointF(kScreenWidth / 2.0, 752),
                textFont(20), kQuiet);
}

// The arrow keys are drawn as arrows; the others by their labels.
enum class Arrow { None, Up, Right, Down, Left };

double keyWidth(const QString& label) {
    return std::max(40.0, QFontMetricsF(textFont(19, true)).horizontalAdvance(label) + 24.0);
}

// A key as it looks on the keyboard, its top-left corner at topLeft.
void drawKey(QPainter& painter, QPointF topLeft, const QString& label, Arrow arrow) {
    const QRectF cap(topLeft, QSizeF(arrow == Arrow::None ? keyWidth(label) : 40.0, 40.0));
    QLinearGradient face(cap.topLeft(), cap.bottomLeft());
    face.setColorAt(0.0, QColor::fromRgbF(0.28f, 0.32f, 0.42f));
    face.setColorAt(1.0, QColor::fromRgbF(0.12f, 0.14f, 0.2f));
    QPainterPath shape;
    shape.addRoundedRect(cap, 7, 7);
    painter.fillPath(shape, face);
    painter.strokePath(shape, QPen(QColor::fromRgbF(0.6f, 0.68f, 0.85f), 1.5));
    if (arrow == Arrow::None) {
        drawCentred(painter, label, cap.center(), textFont(19, true), Qt::white);
        return;
    }
    QPainterPath shaft;
    shaft.moveTo(0, -11);
    shaft.lineTo(8, -2);
    shaft.lineTo(3, -2);
    shaft.lineTo(3, 11);
    shaft.lineTo(-3, 11);
    shaft.lineTo(-3, -2);
    shaft.lineTo(-8, -2);
    shaft.closeSubpath();
    QTransform place;
    place.translate(cap.center().x(), cap.center().y());
    place.rotate(90.0 * (static_cast<int>(arrow) - 1));
    painter.fillPath(place.map(shaft), Qt::white);
}

struct Key {
    const char* label;
    Arrow arrow = Arrow::None;
};

// One row of the table: its keys, right-aligned against the column of descriptions, and what
// they do.
void drawRow(QPainter& painter, double y, std::initializer_list<Key> keys, const QString& what) {
    constexpr double kColumn = 520;
    constexpr double kGap = 8;
    double x = kColumn - 24;
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) {
        x -= (key->arrow == Arrow::None ? keyWidth(key->label) : 40.0);
        drawKey(painter, QPointF(x, y - 20), key->label, key->arrow);
        x -= kGap;
    }
    const QFont font = textFont(24);
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.setPen(kText);
    painter.drawText(QPointF(kColumn, y + (metrics.ascent() - metrics.descent()) / 2), what);
}

void drawSection(QPainter& painter, double y, const QString& title) {
    const QFont font = displayFont(24);
    painter.setFont(font);
    painter.setPen(kHeading);
    painter.drawText(QPointF(236, y), title);
    painter.fillRect(QRectF(236, y + 10, 808, 1.5), QColor::fromRgbF(0.35f, 0.5f, 0.8f, 0.6f));
}

} // namespace

QImage drawAbout(int scale) {
    QImage image = dimmedSky(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawTitle(painter, QPointF(kScreenWidth / 2.0, 170), 100);
    drawCentred(painter, "A GAME OF ORBITAL FLIGHT", QPointF(kScreenWidth / 2.0, 312),
                displayFont(28), kHeading);
    const char* lines[] = {"Fly a small spacecraft through a model of the solar system,",
                           "pulled by the Sun, the planets and the Moon as Newton's law says.",
                           "Hold an orbit, chase a satellite, dock gently with a station",
                           "and meet an asteroid falling in from the dark,",
                           "with a limited tank and, now and then, a deadline."};
    double y = 400;
    for (const char* line : lines) {
        drawCentred(painter, line, QPointF(kScreenWidth / 2.0, y), textFont(25), kText);
        y += 38;
    }
    QFont definition("P052");
    definition.setPixelSize(23);
    definition.setItalic(true);
    drawCentred(painter,
                "apsis: the point of an orbit nearest to, or farthest from, the body it circles",
                QPointF(kScreenWidth / 2.0, 640), definition, QColor::fromRgbF(0.62f, 0.7f, 0.85f));
    drawFooter(painter);
    return image;
}

QImage drawInstructions(int scale) {
    QImage image = dimmedSky(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawCentred(painter, "INSTRUCTIONS", QPointF(kScreenWidth / 2.0, 62), displayFont(50), kText);

    drawSection(painter, 138, "IN FLIGHT");
    double y = 184;
    const double step = 43;
    drawRow(painter, y, {{"", Arrow::Up}}, "Fire the engine");
    drawRow(painter, y += step, {{"", Arrow::Left}, {"", Arrow::Right}}, "Turn left, turn right");
    drawRow(painter, y += step, {{"Space"}}, "Start the flight, or pause it");
    drawRow(painter, y += step, {{"x"}, {"z"}}, "Throttle up, throttle down");
    drawRow(painter, y += step, {{"s"}, {"a"}}, "Time faster, time slower");
    drawRow(painter, y += step, {{"w"}, {"q"}}, "Zoom in, zoom out (time slows or quickens too)");
    drawRow(painter, y += step, {{"Tab"}}, "Start the level again");
    drawRow(painter, y += step, {{"F2"}, {"F3–F6"}}, "Navigation aids; attitude hold");
    drawRow(painter, y += step, {{"F7–F10"}, {"Home"}, {"End"}, {"PgUp"}, {"PgDn"}},
            "Planned burn: set, drop, move, size");
    drawRow(painter, y + step, {{"Esc"}}, "Back to the menu");

    drawSection(painter, 621, "ON THE MENUS");
    y = 665;
    drawRow(painter, y, {{"", Arrow::Up}, {"", Arrow::Down}, {"", Arrow::Left}, {"", Arrow::Right}},
            "Move the choice, or the level and difficulty");
    drawRow(painter, y + step, {{"any other key"}}, "Choose");
    drawFooter(painter);
    return image;
}

} // namespace apsis::artgen
