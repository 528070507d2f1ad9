#include "platform/qt_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

namespace apsis {
namespace {

// A sheet of side x side pixels, spritesWide frames along each side, each frame a disc of its own
// colour with a band across it, as smooth as the game's pictures.
QImage sheet(int side, int spritesWide) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double frame = static_cast<double>(side) / spritesWide;
    for (int f = 0; f < spritesWide * spritesWide; ++f) {
        const QRectF box((f % spritesWide) * frame, (f / spritesWide) * frame, frame, frame);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromHsv(f * 359 / (spritesWide * spritesWide), 160, 220));
        painter.drawEllipse(box.adjusted(frame / 8, frame / 8, -frame / 8, -frame / 8));
        painter.setBrush(QColor(250, 250, 240));
        painter.drawRect(box.adjusted(frame / 4, frame * 0.45, -frame / 4, -frame * 0.45));
    }
    return image;
}

// The mean difference of two pictures of one size, levels of a channel.
double meanDifference(const QImage& a, const QImage& b) {
    double sum = 0.0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                   std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * a.width() * a.height());
}

class QtPictureTest : public ::testing::Test {
  protected:
    // A folder of each test's own: tests run side by side in processes of their own.
    void SetUp() override { ASSERT_TRUE(scratch.isValid()); }
    PictureFile save(const QImage& image, const std::string& name) {
        const auto path = folder / name;
        EXPECT_TRUE(image.save(QString::fromStdString(path.string()), "JPG", 92));
        return {path, image.size()};
    }
    // The part of the picture a draw of from at density takes, once decoded.
    static QImage drawn(const QtPicture& picture, const QRectF& from, double density) {
        picture.pixels(from, density);
        QtPicture::waitForDecodes();
        const QtPicture::Pixels pixels = picture.pixels(from, density);
        return pixels.image.isNull()
                   ? QImage()
                   : pixels.image.copy(pixels.from.toRect()).convertToFormat(QImage::Format_RGB32);
    }
    QTemporaryDir scratch;
    std::filesystem::path folder = scratch.path().toStdString();
};

TEST_F(QtPictureTest, AFrameDecodedAtTheSizeDrawnIsTheFrameOfTheWholeSheetScaled) {
    // Large enough to be decoded a band of lines at a time at its own size.
    const PictureFile file = save(sheet(2560, 8), "sheet.jpg");
    const QImage whole = QtPicture({file}).image();
    const QtPicture picture({file});
    ASSERT_EQ(whole.size(), QSize(2560, 2560));
    for (const int frame : {0, 27, 63}) {
        const QRect box((frame % 8) * 320, (frame / 8) * 320, 320, 320);
        const QImage own = whole.copy(box).convertToFormat(QImage::Format_RGB32);
        for (const int reduction : {1, 2, 4, 8}) {
            SCOPED_TRACE(testing::Message() << "frame " << frame << " at 1/" << reduction);
            const QImage part = drawn(picture, QRectF(box), 1.0 / reduction);
            if (reduction == 1) {
                // Only the band of lines drawn is held.
                EXPECT_LT(picture.pixels(QRectF(box), 1.0).image.height(), 2560);
            }
            ASSERT_EQ(part.size(), box.size() / reduction);
            const QImage scaled =
                own.scaled(part.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            EXPECT_LT(meanDifference(part, scaled), reduction == 1 ? 0.01 : 3.0);
        }
    }
    // A frame cut to the view may end a rounding error past its last line: one band still holds it.
    EXPECT_EQ(drawn(picture, QRectF(0, 320, 320, 320 + 1e-9), 1.0).height(), 320);
    EXPECT_EQ(picture.pixels(QRectF(0, 320, 320, 320 + 1e-9), 1.0).image.height(), 320);
    // The band after the one drawn is decoded ahead: the next row of frames is at hand at once.
    const QtPicture turning({file});
    drawn(turning, QRectF(0, 0, 320, 320), 1.0);
    EXPECT_EQ(turning.pixels(QRectF(0, 320, 320, 320), 1.0).from, QRectF(0, 0, 320, 320));
    // Drawn larger than its own size, the picture is drawn from all of its pixels.
    EXPECT_EQ(drawn(picture, QRectF(0, 0, 320, 320), 3.0).size(), QSize(320, 320));
}

TEST_F(QtPictureTest, AFinerFileIsDrawnOnlyOnASurfaceOfItsDensity) {
    const QImage single = sheet(256, 1);
    const QtPicture picture(
        {save(single, "screen.jpg"),
         save(single.scaled(512, 512, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
              "screen@2x.jpg")});
    EXPECT_EQ(picture.width(), 256.0f);
    const QRectF all(0, 0, 256, 256);
    EXPECT_EQ(drawn(picture, all, 1.0).size(), QSize(256, 256));
    EXPECT_EQ(drawn(picture, all, 2.0).size(), QSize(512, 512));
    EXPECT_EQ(drawn(picture, all, 3.0).size(), QSize(512, 512));
    // A full-HD window stretches the picture's own a half again, as it stretched it before.
    EXPECT_EQ(drawn(picture, all, 1.5).size(), QSize(256, 256));
    EXPECT_EQ(drawn(picture, all, 0.5).size(), QSize(128, 128));
}

TEST_F(QtPictureTest, LargeSizesNotDrawnLatelyGoWhenANewOneIsDecodedButNeverWhatIsInUse) {
    // Each whole at its own size holds 16 MB: two are more than the pictures may hold at once.
    const QtPicture first({save(sheet(2048, 8), "first.jpg")});
    const QtPicture second({save(sheet(2048, 8), "second.jpg")});
    const QRectF all(0, 0, 2048, 2048);
    const auto heldWidth = [&](const QtPicture& picture) {
        return picture.pixels(all, 1.0).image.width();
    };
    // Both drawn in one redraw, and the one before: both stay.
    QtPicture::beginRedraw();
    EXPECT_EQ(drawn(first, all, 1.0).width(), 2048);
    EXPECT_EQ(drawn(second, all, 1.0).width(), 2048);
    QtPicture::beginRedraw();
    EXPECT_EQ(heldWidth(first), 2048);
    EXPECT_EQ(heldWidth(second), 2048);
    // Drawn small for a while, the first lets go of its own size as soon as the second needs
    // room for another, not seconds later; until it is decoded again, it is drawn coarser.
    for (int redraw = 0; redraw < 3; ++redraw) {
        QtPicture::beginRedraw();
        drawn(first, all, 1.0 / 8);
        drawn(second, all, 1.0);
    }
    drawn(second, QRectF(0, 0, 1024, 1024), 1.0 / 2);
    EXPECT_LT(heldWidth(first), 2048);
    EXPECT_EQ(drawn(first, all, 1.0).width(), 2048);
}

TEST_F(QtPictureTest, AFileChangedOrGoneDrawsNothingAndNeverStopsTheGame) {
    const PictureFile file = save(sheet(512, 8), "sheet.jpg");
    const QtPicture picture({file});
    QtPicture::waitForDecodes();
    // What was decoded before is still drawn, in place of what can no longer be decoded.
    std::filesystem::remove(file.path);
    EXPECT_EQ(drawn(picture, QRectF(0, 0, 64, 64), 1.0 / 8).size(), QSize(8, 8));
    EXPECT_EQ(drawn(picture, QRectF(0, 0, 64, 64), 1.0).size(), QSize(8, 8));
    // A file of another size in its place is another picture, not this one's pixels.
    save(sheet(256, 8), "sheet.jpg");
    EXPECT_TRUE(picture.image().isNull());
}

} // namespace
} // namespace apsis
