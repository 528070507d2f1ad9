#include "platform/qt_magnify.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <random>

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace apsis {
namespace {

// A picture of noise, the hardest case for a blend: neighbouring pixels differ by anything.
QImage noise(bool transparent) {
    QImage picture(48, 40, transparent ? QImage::Format_ARGB32 : QImage::Format_RGB888);
    std::mt19937 random(7);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto channel = [&] { return static_cast<int>(random() % 256); };
            picture.setPixel(x, y,
                             qRgba(channel(), channel(), channel(), transparent ? channel() : 255));
        }
    }
    return picture;
}

// A blue surface of the given size (a transparent picture shows it through) with the picture's part
// from drawn into to, by Qt's filtered drawing or by ours.
QImage drawn(QSize size, const QImage& picture, const QRectF& from, const QRectF& to, bool ours,
             qreal ratio = 1.0, QRect clip = {}) {
    QImage surface(size * ratio, QImage::Format_RGB32);
    surface.setDevicePixelRatio(ratio);
    surface.fill(QColor(40, 90, 160));
    QPainter painter(&surface);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!clip.isNull())
        painter.setClipRect(clip);
    if (!ours)
        painter.drawImage(to, picture, from);
    else
        EXPECT_TRUE(drawMagnified(painter, to, picture, from, QRectF(QPointF(), QSizeF(size))));
    return surface;
}

// A widget that draws the part from of a picture magnified over the whole of itself.
class MagnifyingWidget : public QWidget {
  public:
    MagnifyingWidget(const QImage& picture, const QRectF& from) : picture_(picture), from_(from) {
        resize(160, 120);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        EXPECT_TRUE(drawMagnified(painter, rect(), picture_, from_, rect()));
    }

  private:
    QImage picture_;
    QRectF from_;
};

// The mean and largest difference of two surfaces, levels of a channel.
struct Difference {
    double mean = 0.0;
    int largest = 0;
};
Difference differenceOf(const QImage& a, const QImage& b) {
    Difference d;
    long long sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            for (const int e : {std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                std::abs(qBlue(p) - qBlue(q))}) {
                sum += e;
                d.largest = std::max(d.largest, e);
            }
        }
    }
    d.mean = static_cast<double>(sum) / (3.0 * a.width() * a.height());
    return d;
}

TEST(Magnify, LooksAsQtsFilteredDrawingFromSlightToExtremeMagnification) {
    const QSize size(160, 120);
    struct Case {
        QRectF from;
        QRectF to;
        qreal ratio;
    };
    // Whole pixels and fractions of them, from twice to thousands of times, the picture's edges in
    // view and far outside it, on a plain and a doubled surface.
    const Case cases[] = {
        {{0, 0, 48, 40}, {10, 5, 120, 100}, 1.0},
        {{3.25, 7.5, 20.5, 15}, {-3.7, 2.2, 150.3, 110}, 1.0},
        {{20.1, 10.3, 0.4, 0.3}, {-40, -30, 240, 180}, 1.0},
        {{30.02, 12.005, 0.05, 0.04}, {-400.5, -300.25, 1000, 800}, 1.0},
        {{5.5, 5.25, 10, 7}, {0.25, 0.5, 90, 63.5}, 2.0},
    };
    for (const bool transparent : {false, true}) {
        const QImage picture = noise(transparent);
        for (const Case& c : cases) {
            const QImage qt = drawn(size, picture, c.from, c.to, false, c.ratio);
            const QImage ours = drawn(size, picture, c.from, c.to, true, c.ratio);
            const Difference d = differenceOf(qt, ours);
            EXPECT_LE(d.mean, 0.5) << c.from.x() << " transparent " << transparent;
            EXPECT_LE(d.largest, 3) << c.from.x() << " transparent " << transparent;
        }
    }
}

TEST(Magnify, DrawsOnlyWithinTheClipAndLeavesSlightMagnificationToQt) {
    const QImage picture = noise(false);
    const QRectF from(10, 10, 8, 6);
    const QRectF to(0, 0, 160, 120);
    const QImage clipped = drawn({160, 120}, picture, from, to, true, 1.0, QRect(40, 30, 50, 20));
    const QImage whole = drawn({160, 120}, picture, from, to, true);
    for (int y = 0; y < 120; ++y) {
        for (int x = 0; x < 160; ++x) {
            const bool inside = x >= 40 && x < 90 && y >= 30 && y < 50;
            ASSERT_EQ(clipped.pixel(x, y), inside ? whole.pixel(x, y) : qRgb(40, 90, 160))
                << x << y;
        }
    }

    // A widget's paint is held to the region being repainted by a clip the painter does not
    // report as its own; outside it, what the surface holds stays as it is.
    MagnifyingWidget widget(picture, from);
    QImage held(160, 120, QImage::Format_RGB32);
    held.fill(QColor(40, 90, 160));
    widget.render(&held, QPoint(40, 30), QRegion(40, 30, 50, 20), QWidget::RenderFlags());
    EXPECT_TRUE(held == clipped);

    QImage surface(160, 120, QImage::Format_RGB32);
    QPainter painter(&surface);
    EXPECT_FALSE(drawMagnified(painter, QRectF(0, 0, 150, 120), picture, QRectF(0, 0, 80, 40),
                               QRectF(0, 0, 160, 120)));
    painter.rotate(10);
    EXPECT_FALSE(drawMagnified(painter, to, picture, from, QRectF(0, 0, 160, 120)));
}

// Drawn again a little moved, a magnified picture writes other pixels only in the columns and
// lines it samples differently, and those are few; drawn from other pixels, all of it changes.
TEST(Magnify, ChangesOnlyWhereItsSamplesDo) {
    const QImage picture = noise(false);
    const QSize size(160, 120);
    const QRectF surface{QPointF(), QSizeF(size)};
    const QRectF from(20.1, 10.3, 0.4, 0.3);
    QRectF to(-40, -30, 240, 180);
    std::optional<MagnifiedSampling> before = samplingOf({}, to, picture, from, surface);
    ASSERT_TRUE(before);
    EXPECT_TRUE(changedPixels(*before, *before).isEmpty());
    QImage was = drawn(size, picture, from, to, true);
    long changedArea = 0;
    int changedSteps = 0;
    for (int step = 0; step < 40; ++step) {
        to.translate(0.004, 0.003);
        const std::optional<MagnifiedSampling> now = samplingOf({}, to, picture, from, surface);
        ASSERT_TRUE(now);
        const QImage is = drawn(size, picture, from, to, true);
        const QRegion changed = changedPixels(*before, *now);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                if (was.pixel(x, y) != is.pixel(x, y)) {
                    ASSERT_TRUE(changed.contains(QPoint(x, y))) << step << " " << x << "," << y;
                }
            }
        }
        for (const QRect& r : changed)
            changedArea += r.width() * r.height();
        changedSteps += changed.isEmpty() ? 0 : 1;
        before = now;
        was = is;
    }
    EXPECT_GT(changedSteps, 0);
    EXPECT_LT(changedArea, 40L * size.width() * size.height() / 10);

    // Another frame of a sheet, another picture: the whole of both draws.
    const std::optional<MagnifiedSampling> other =
        samplingOf({}, to, picture, from.translated(4, 0), surface);
    ASSERT_TRUE(other);
    EXPECT_EQ(changedPixels(*before, *other), QRegion(before->area));
    EXPECT_EQ(changedPixels(*before, *samplingOf({}, to, picture.copy(), from, surface)),
              QRegion(before->area));
    EXPECT_FALSE(samplingOf({}, QRectF(0, 0, 150, 120), picture, QRectF(0, 0, 80, 40), surface));
}

} // namespace
} // namespace apsis
