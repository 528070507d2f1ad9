#include "platform/qt_gif_reader.h"
#include "platform/qt_resources.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace {

// The craft's sheet as the build left it, in memory: what is timed is the decoding.
const QByteArray& shipSheet() {
    static const QByteArray bytes = [] {
        QFile file(QString::fromStdString(
            (apsis::findResourceFolder(apsis::executableFolder()) / "ship.gif").string()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    return bytes;
}

// One row of the craft's frames, as the decoding thread makes it for a draw of the craft filling
// a full-HD view: the sheet at its own size (argument 1) or at a half, a quarter, an eighth, and
// the first row of frames or the last (argument 0), which reads the whole file.
void BM_ShipBandDecode(benchmark::State& state) {
    QBuffer buffer;
    buffer.setData(shipSheet());
    buffer.open(QIODevice::ReadOnly);
    const QSize own = QImageReader(&buffer).size();
    const QSize size = own / static_cast<int>(state.range(1));
    const int lines = size.height() / 8;
    for (auto _ : state) {
        buffer.seek(0);
        const apsis::GifLines band =
            apsis::readGifLines(buffer, own, size, static_cast<int>(state.range(0)) * lines, lines);
        if (band.image.isNull())
            state.SkipWithError("the craft's sheet does not decode");
        benchmark::DoNotOptimize(band.image.constBits());
    }
}
BENCHMARK(BM_ShipBandDecode)
    ->ArgsProduct({{0, 7}, {1, 2, 8}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

// The same sheet whole through Qt's reader, which decodes a GIF whole before it cuts or scales it.
void BM_ShipWholeDecodeByQt(benchmark::State& state) {
    for (auto _ : state) {
        QBuffer buffer;
        buffer.setData(shipSheet());
        buffer.open(QIODevice::ReadOnly);
        const QImage image = QImageReader(&buffer).read();
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(BM_ShipWholeDecodeByQt)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace
