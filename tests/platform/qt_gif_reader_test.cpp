#include "platform/qt_gif_reader.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace apsis {
namespace {

const std::filesystem::path kFolder = APSIS_TEST_RESOURCE_DIR;

QByteArray bytesOf(const std::string& file) {
    QFile in(QString::fromStdString((kFolder / file).string()));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

GifLines read(const QByteArray& bytes, QSize own, QSize size, int top, int lines) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return readGifLines(buffer, own, size, top, lines);
}

// The whole picture as Qt's own reader gives it, premultiplied as the game draws it.
QImage readByQt(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer).read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// The mean and the largest difference of two pictures of one size, in levels of a channel.
std::pair<double, int> difference(const QImage& a, const QImage& b) {
    double sum = 0.0;
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto* p = reinterpret_cast<const QRgb*>(a.constScanLine(y));
        const auto* q = reinterpret_cast<const QRgb*>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            for (const int shift : {0, 8, 16, 24}) {
                const int d = std::abs(static_cast<int>((p[x] >> shift) & 0xff) -
                                       static_cast<int>((q[x] >> shift) & 0xff));
                sum += d;
                most = std::max(most, d);
            }
        }
    }
    return {sum / (4.0 * a.width() * a.height()), most};
}

// The game's own sheets: at their own size the same pixels as Qt's reader gives; at a half, a
// quarter and an eighth, a band of lines is the same band of the whole picture scaled down.
TEST(GifReader, ReadsTheGamesSheetsAsQtDoesAndABandAtASizeIsTheWholeScaled) {
    for (const char* name : {"satellite.gif", "station.gif", "ship.gif"}) {
        SCOPED_TRACE(name);
        const QByteArray bytes = bytesOf(name);
        const QImage whole = readByQt(bytes);
        ASSERT_FALSE(whole.isNull());
        const QSize own = whole.size();
        // The whole at once, then the band of a sheet's second row of frames, the last lines.
        const GifLines all = read(bytes, own, own, 0, own.height());
        ASSERT_FALSE(all.unusual);
        EXPECT_TRUE(all.image == whole);
        const int eighth = own.height() / 8;
        for (const int top : {eighth, own.height() - eighth}) {
            const GifLines band = read(bytes, own, own, top, eighth);
            EXPECT_TRUE(band.image == whole.copy(0, top, own.width(), eighth)) << top;
        }
        for (const int reduction : {2, 4, 8}) {
            SCOPED_TRACE(reduction);
            const QImage scaled =
                whole.scaled(own / reduction, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const int lines = scaled.height() / 8;
            const int top = scaled.height() / 2;
            const QImage band = read(bytes, own, scaled.size(), top, lines).image;
            ASSERT_EQ(band.size(), QSize(scaled.width(), lines));
            const auto [mean, most] = difference(band, scaled.copy(0, top, scaled.width(), lines));
            EXPECT_LT(mean, 0.5);
            EXPECT_LE(most, 8);
        }
    }
}

// A resource folder may hold anything: a file cut short, damaged, or announcing another size is
// no picture, and never a crash; a GIF of a kind the reader leaves to Qt's, or no GIF, is said so.
TEST(GifReader, BrokenFilesGiveNoPictureAndUnusualOnesAreLeftToQt) {
    const QByteArray good = bytesOf("satellite.gif");
    ASSERT_FALSE(good.isEmpty());
    const QSize own = readByQt(good).size();
    const QSize eighth = own / 8;
    ASSERT_FALSE(read(good, own, eighth, 0, eighth.height()).image.isNull());

    // Cut short anywhere past its signature and before its last pixel (the three bytes after it
    // close the data and the file).
    for (qsizetype length = 6; length + 3 < good.size(); length += length < 820 ? 1 : 397) {
        const GifLines cut = read(good.left(length), own, eighth, 0, eighth.height());
        ASSERT_TRUE(cut.image.isNull() && !cut.unusual) << length;
    }
    // Damaged anywhere: whatever comes of it is a picture of the size asked for, or none.
    std::mt19937 random(21);
    for (int i = 0; i < 600; ++i) {
        QByteArray damaged = good;
        const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(good.size()));
        damaged[at] = static_cast<char>(random());
        const QImage image = read(damaged, own, eighth, 0, eighth.height()).image;
        ASSERT_TRUE(image.isNull() || image.size() == eighth) << at;
    }
    // The header's size is not the one announced, or is vast; the data's code size is beyond
    // what a GIF allows; the band asked for lies outside the picture.
    QByteArray vast = good;
    vast[6] = vast[7] = vast[8] = vast[9] = '\xff';
    EXPECT_TRUE(read(vast, own, eighth, 0, 1).image.isNull());
    EXPECT_TRUE(read(vast, QSize(65535, 65535), QSize(65535, 65535), 0, 1).image.isNull());
    EXPECT_TRUE(read(good, own * 2, own, 0, 1).image.isNull());
    const qsizetype descriptor = good.indexOf(',', 13 + 3 * 256);
    ASSERT_GT(descriptor, 0);
    for (const char codeSize : {'\0', '\x09', '\x0c'}) {
        QByteArray wrong = good;
        wrong[descriptor + 10] = codeSize;
        EXPECT_TRUE(read(wrong, own, eighth, 0, 1).image.isNull()) << int{codeSize};
    }
    for (const auto& [top, lines] : {std::pair{-1, 2}, {0, 0}, {eighth.height(), 1}})
        EXPECT_TRUE(read(good, own, eighth, top, lines).image.isNull()) << top << " " << lines;

    // Interlaced, or a picture placed within its screen: left to Qt's reader.
    QByteArray interlaced = good;
    interlaced[descriptor + 9] = static_cast<char>(interlaced[descriptor + 9] | 0x40);
    QByteArray placed = good;
    placed[descriptor + 1] = '\x01';
    for (const QByteArray& unusual : {interlaced, placed, bytesOf("menu.jpg")})
        EXPECT_TRUE(read(unusual, own, eighth, 0, 1).unusual);
    // Scaled to a size that is no whole fraction of its own.
    EXPECT_TRUE(read(good, own, QSize(own.width() / 3 + 1, own.height() / 3), 0, 1).unusual);
}

} // namespace
} // namespace apsis
