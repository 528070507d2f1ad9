#include "backdrop.h"

#include "noise.h"

#include <cmath>

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

namespace apsis::artgen {

namespace {

float clampUnit(float v) {
    return std::clamp(v, 0.0f, 1.0f);
}

// A soft round glow of the given radius, bright at its centre.
void drawGlow(QPainter& painter, QPointF at, double radius, QColor colour) {
    QRadialGradient glow(at, radius);
    glow.setColorAt(0.0, colour);
    colour.setAlphaF(0.0f);
    glow.setColorAt(1.0, colour);
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawEllipse(at, radius, radius);
}

} // namespace

QImage drawSky(int scale) {
    // The nebula, worked out at a quarter of the size and smoothed up.
    const Noise cloud(801);
    const Noise hue(802);
    QImage nebula(kScreenWidth / 4, kScreenHeight / 4, QImage::Format_RGB32);
    for (int y = 0; y < nebula.height(); ++y) {
        for (int x = 0; x < nebula.width(); ++x) {
            const Vec3 p{static_cast<float>(x) / 90.0f, static_cast<float>(y) / 90.0f, 0.5f};
            // A diagonal band of haze from the lower left to the upper right.
            const float band = std::exp(-std::pow(
                (static_cast<float>(x) * 0.4f + static_cast<float>(y) - 170.0f) / 70.0f, 2.0f));
            const float density = clampUnit((cloud.warped(p, 6, 1.2f) - 0.42f) * 1.6f) * band;
            const float h = hue.fractal(p * 0.7f, 3);
            const float r = density * (0.10f + 0.12f * h);
            const float g = density * 0.06f;
            const float b = density * (0.22f - 0.08f * h);
            nebula.setPixel(x, y,
                            qRgb(static_cast<int>(255 * clampUnit(r + 0.004f)),
                                 static_cast<int>(255 * clampUnit(g + 0.006f)),
                                 static_cast<int>(255 * clampUnit(b + 0.016f))));
        }
    }
    QImage sky = nebula.scaled(kScreenWidth * scale, kScreenHeight * scale, Qt::IgnoreAspectRatio,
                               Qt::SmoothTransformation);
    sky.setDevicePixelRatio(scale);
    QPainter painter(&sky);
    painter.setRenderHint(QPainter::Antialiasing);
    Random random(803);
    const int stars = kScreenWidth * kScreenHeight / 700;
    for (int i = 0; i < stars; ++i) {
        const QPointF at(random.uniform(0.0f, kScreenWidth), random.uniform(0.0f, kScreenHeight));
        // Most stars are faint; a few are bright.
        const float brightness = std::pow(random.uniform(), 6.0f);
        const float warmth = random.uniform(-1.0f, 1.0f);
        QColor colour =
            QColor::fromRgbF(clampUnit(0.85f + 0.15f * warmth), clampUnit(0.88f + 0.04f * warmth),
                             clampUnit(0.95f - 0.2f * warmth));
        colour.setAlphaF(0.25f + 0.75f * std::sqrt(brightness));
        const double radius = 0.5 + 1.4 * static_cast<double>(brightness);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(at, radius, radius);
        if (brightness > 0.35f) {
            colour.setAlphaF(0.35f * brightness);
            drawGlow(painter, at, 3.0 + 9.0 * static_cast<double>(brightness), colour);
        }
    }
    return sky;
}

QFont displayFont(int pixelSize) {
    QFont font("URW Gothic");
    font.setStyleName("Demi");
    font.setPixelSize(pixelSize);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

QFont textFont(int pixelSize, bool bold) {
    QFont font("Nimbus Sans");
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

void drawCentred(QPainter& painter, const QString& text, QPointF centre, const QFont& font,
                 const QColor& colour) {
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(text);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(
        QPointF(centre.x() - width / 2, centre.y() + (metrics.ascent() - metrics.descent()) / 2),
        text);
}

void drawTitle(QPainter& painter, QPointF centre, double capHeight) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // The letters as a path, so that they can be outlined and filled with a gradient.
    QFont font = displayFont(static_cast<int>(std::lround(capHeight / 0.74)));
    font.setLetterSpacing(QFont::PercentageSpacing, 135);
    QPainterPath letters;
    letters.addText(0, 0, font, "APSIS");
    const QRectF box = letters.boundingRect();
    letters.translate(centre - box.center());
    const QRectF placed = letters.boundingRect();

    // The orbit: an ellipse tilted across the name, its far half behind the letters and its near
    // half in front of them.
    const double a = placed.width() * 0.66;
    const double b = placed.height() * 0.62;
    QPainterPath orbit;
    orbit.addEllipse(QPointF(0, 0), a, b);
    QTransform place;
    place.translate(centre.x(), centre.y());
    place.rotate(-9);
    orbit = place.map(orbit);
    const QPen orbitPen(QColor::fromRgbF(0.55f, 0.75f, 1.0f, 0.75f), capHeight * 0.025);
    const QRectF upperHalf(centre.x() - 2 * a, centre.y() - 2 * a, 4 * a, 2 * a);
    painter.save();
    painter.setClipRect(upperHalf);
    painter.strokePath(orbit, orbitPen);
    painter.restore();

    // A halo round the letters.
    for (int i = 4; i >= 1; --i) {
        painter.strokePath(letters,
                           QPen(QColor::fromRgbF(0.3f, 0.55f, 1.0f, 0.07f), capHeight * 0.05 * i,
                                Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    QLinearGradient fill(placed.topLeft(), placed.bottomLeft());
    fill.setColorAt(0.0, QColor::fromRgbF(1.0f, 1.0f, 1.0f));
    fill.setColorAt(0.55, QColor::fromRgbF(0.78f, 0.86f, 1.0f));
    fill.setColorAt(1.0, QColor::fromRgbF(0.45f, 0.6f, 0.9f));
    painter.fillPath(letters, fill);

    painter.setClipRect(upperHalf.translated(0, 2 * a));
    painter.strokePath(orbit, orbitPen);
    painter.setClipping(false);
    // The craft at the orbit's far end, its apsis.
    const QPointF apsis = place.map(QPointF(a, 0));
    drawGlow(painter, apsis, capHeight * 0.22, QColor::fromRgbF(0.7f, 0.85f, 1.0f, 0.7f));
    painter.setBrush(Qt::white);
    painter.drawEllipse(apsis, capHeight * 0.04, capHeight * 0.04);
    painter.restore();
}

} // namespace apsis::artgen
