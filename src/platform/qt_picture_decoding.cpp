#include "platform/qt_picture_decoding.h"

#include "platform/qt_gif_reader.h"
#include "platform/qt_resources.h"

#include <condition_variable>
#include <cstdio>
#include <deque>
#include <malloc.h>
#include <thread>

#include <QImageReader>

namespace apsis::decoding {
namespace {

std::atomic<unsigned> gDone = 0;

// Premultiplied alpha is what QPainter draws fastest; an opaque picture stays opaque.
QImage prepared(QImage image) {
    // Converted in place where Qt can: a sheet is not held twice over while it changes format.
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB888);
}

void decode(QtPicture::Decode& d) {
    std::string why = "not the picture it was";
    // Read as it is decoded: a sheet's file need not be held whole beside its pixels.
    const std::unique_ptr<QFile> file = openFile(d.file.path, QtResources::kPictureFileLimit, why);
    QImage image;
    // GIFs by our own reader, which keeps only the lines asked for: Qt's decodes a whole sheet
    // before it cuts or scales it, a hundred megabytes for the craft's. What it leaves to Qt's
    // is read again from the start.
    const GifLines gif =
        file ? readGifLines(*file, d.file.size, d.size, d.top, d.lines) : GifLines{};
    if (!gif.unusual) {
        image = gif.image;
    } else if (file->seek(0)) {
        QImageReader reader(file.get());
        if (reader.size() == d.file.size) {
            const QRect band(0, d.top, d.size.width(), d.lines);
            if (d.size != d.file.size)
                reader.setScaledSize(d.size);
            if (d.lines != d.size.height()) {
                // Lines are cut while the file is read when its own size is decoded.
                if (d.size == d.file.size)
                    reader.setClipRect(band);
                else
                    reader.setScaledClipRect(band);
            }
            image = reader.read();
        }
    }
    if (image.size() == QSize(d.size.width(), d.lines))
        d.image = prepared(std::move(image));
    else
        std::fprintf(stderr, "apsis: %s: %s; taken as missing\n", d.file.path.c_str(), why.c_str());
    d.done.store(true, std::memory_order_release);
}

// The decoding thread: one, so that decoding never takes both cores, and pictures are decoded in
// the order they were asked for. Work is handed over under a plain mutex, which a thread checker
// follows. Never destroyed: a program waits for its decodes (waitForDecodes) before it leaves,
// and the thread, waiting for work, ends with the process.
class Decoder {
  public:
    void start(std::shared_ptr<QtPicture::Decode> d) {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(d));
        if (!thread_.joinable())
            thread_ = std::thread([this] { work(); });
        wake_.notify_one();
    }
    void waitForDone() {
        std::unique_lock lock(mutex_);
        idle_.wait(lock, [this] { return queue_.empty() && !busy_; });
    }

  private:
    void work() {
        std::unique_lock lock(mutex_);
        for (;;) {
            wake_.wait(lock, [this] { return !queue_.empty(); });
            const std::shared_ptr<QtPicture::Decode> d = std::move(queue_.front());
            queue_.pop_front();
            busy_ = true;
            lock.unlock();
            run(d);
            giveBackFreedMemory();
            gDone.fetch_add(1, std::memory_order_release);
            lock.lock();
            busy_ = false;
            if (queue_.empty())
                idle_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable wake_; // work was queued
    std::condition_variable idle_; // the queue ran dry
    std::deque<std::shared_ptr<QtPicture::Decode>> queue_;
    bool busy_ = false;
    std::thread thread_;
};

Decoder& decoder() {
    static auto* one = new Decoder();
    return *one;
}

} // namespace

// Decoding frees blocks of megabytes, on this thread and the drawing one, and the allocator
// keeps freed memory for the next block (its threshold for mapping blocks of their own rises to
// the largest block freed): left alone, the game would hold the most it ever decoded at once for
// the rest of its run. Handed back after each decode and each letting go, away from the frames'
// own allocations, which reuse what they free.
void giveBackFreedMemory() {
    malloc_trim(0);
}

void run(const std::shared_ptr<QtPicture::Decode>& d) {
    std::call_once(d->once, [&] { decode(*d); });
}

bool isDone(const QtPicture::Decode& d) {
    return d.done.load(std::memory_order_acquire);
}

void queue(std::shared_ptr<QtPicture::Decode> d) {
    decoder().start(std::move(d));
}

void waitForAll() {
    decoder().waitForDone();
}

unsigned done() {
    return gDone.load(std::memory_order_acquire);
}

} // namespace apsis::decoding
