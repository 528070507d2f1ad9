#pragma once

#include "platform/qt_canvas.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace apsis {

// A black surface drawn through a QtCanvas, read back in the game's own coordinates.
class QtCanvasTest : public ::testing::Test {
  protected:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 100;

    QtCanvasTest() : image(kWidth, kHeight, QImage::Format_RGB32) { image.fill(Qt::black); }

    template <typename Draw>
    void draw(Draw&& drawing) {
        QPainter painter(&image);
        QtCanvas canvas(painter);
        drawing(canvas);
    }
    // The colour at a view point, y upwards.
    QColor at(int x, int y) const { return image.pixelColor(x, kHeight - 1 - y); }
    bool lit(int x, int y) const { return at(x, y) != QColor(Qt::black); }

    // The lit pixels' bounding box in view coordinates, inclusive.
    struct Ink {
        int left = kWidth, bottom = kHeight, right = -1, top = -1;
    };
    Ink ink() const {
        Ink box;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (lit(x, y)) {
                    box = {std::min(box.left, x), std::min(box.bottom, y), std::max(box.right, x),
                           std::max(box.top, y)};
                }
            }
        }
        return box;
    }

    QImage image;
};

} // namespace apsis
