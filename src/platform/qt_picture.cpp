#include "platform/qt_picture.h"

#include "platform/qt_resources.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <malloc.h>
#include <mutex>
#include <thread>

#include <QImageReader>

namespace apsis {

// One size of a picture, or a band of lines of it, decoded once by whichever thread gets to it
// first; the other waits, or looks at done and does not.
struct QtPicture::Decode {
    PictureFile file;
    QSize size;    // the whole picture at this size
    int top = 0;   // the first line held
    int lines = 0; // lines held from top
    QImage image;  // the pixels, once done; null when the file did not decode as announced
    std::atomic<bool> done = false;
    std::once_flag once;
};

namespace {

// Pictures larger than this are decoded a band of lines at a time: a band as tall as an eighth of
// the picture, or the few bands that what is drawn reaches into.
constexpr qint64 kWholeLimit = qint64{2048} * 2048; // pixels
constexpr int kBands = 8;
constexpr qint64 kAheadLimit = qint64{2} * 1024 * 1024; // pixels of a band decoded ahead
// What was not drawn in this many redraws is let go; they are looked over every kSweep redraws.
constexpr int kUnusedRedraws = 45;
constexpr int kSweep = 15;

std::atomic<unsigned> gDecodesDone = 0;
int gRedraw = 0; // redraws begun, on the drawing thread

// Every picture made from files, for letting go of what they hold. Never destroyed: pictures
// held by other static objects may outlive any order of destruction.
std::vector<const QtPicture*>& pictures() {
    static auto* all = new std::vector<const QtPicture*>();
    return *all;
}

// The lines of a picture at size that a draw of from (in pixels of the picture's own size
// `own`) reads: first to last, last excluded.
std::pair<int, int> linesOf(const QRectF& from, QSize size, QSize own) {
    const double scale = static_cast<double>(size.height()) / own.height();
    const int first =
        std::clamp(static_cast<int>(std::floor(from.top() * scale)), 0, size.height() - 1);
    const int last =
        std::clamp(static_cast<int>(std::ceil(from.bottom() * scale)), first + 1, size.height());
    return {first, last};
}

// Premultiplied alpha is what QPainter draws fastest; an opaque picture stays opaque.
QImage prepared(QImage image) {
    // Converted in place where Qt can: a sheet is not held twice over while it changes format.
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB888);
}

// Decoding frees blocks of megabytes, on this thread and the drawing one, and the allocator
// keeps freed memory for the next block (its threshold for mapping blocks of their own rises to
// the largest block freed): left alone, the game would hold the most it ever decoded at once for
// the rest of its run. Handed back after each decode and each letting go, away from the frames'
// own allocations, which reuse what they free.
void giveBackFreedMemory() {
    malloc_trim(0);
}

void decode(QtPicture::Decode& d) {
    std::string why = "not the picture it was";
    // Read as it is decoded: a sheet's file need not be held whole beside its pixels.
    const std::unique_ptr<QFile> file = openFile(d.file.path, QtResources::kPictureFileLimit, why);
    QImage image;
    if (file) {
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

void run(const std::shared_ptr<QtPicture::Decode>& d) {
    std::call_once(d->once, [&] { decode(*d); });
}

bool isDone(const QtPicture::Decode& d) {
    return d.done.load(std::memory_order_acquire);
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
            gDecodesDone.fetch_add(1, std::memory_order_release);
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

// The sizes a file decodes to cheaply: its own, and JPEG's halves, quarters and eighths.
std::vector<QSize> sizesOf(const PictureFile& file) {
    std::vector<QSize> sizes;
    for (const int reduction : {8, 4, 2, 1}) {
        const QSize size(file.size.width() / reduction, file.size.height() / reduction);
        if (size.width() * reduction == file.size.width() &&
            size.height() * reduction == file.size.height() && !size.isEmpty())
            sizes.push_back(size);
    }
    return sizes;
}

} // namespace

QtPicture::QtPicture(QImage image) : size_(image.size()) {
    auto d = std::make_shared<Decode>();
    d->size = size_;
    d->lines = size_.height();
    d->image = std::move(image);
    d->done = true;
    std::call_once(d->once, [] {});
    levels_.push_back({d, 0});
}

QtPicture::QtPicture(std::vector<PictureFile> files) : size_(files.front().size), files_(files) {
    pictures().push_back(this);
    // The coarsest size, to have something to draw as soon as can be.
    const QSize coarsest = sizesOf(files_.front()).front();
    levelFor(0, coarsest, QRectF(QPointF(), QSizeF(size_)), true);
}

QtPicture::~QtPicture() {
    std::erase(pictures(), this);
}

QtPicture::Level& QtPicture::levelFor(int file, QSize size, const QRectF& from, bool queue) const {
    // The lines of the picture at this size that a draw from reads, and the band that holds them.
    const auto [first, last] = linesOf(from, size, size_);
    int top = 0;
    int bottom = size.height();
    if (qint64{size.width()} * size.height() > kWholeLimit) {
        const int band = (size.height() + kBands - 1) / kBands;
        top = first / band * band;
        bottom = std::min(size.height(), (last + band - 1) / band * band);
    }
    const auto& path = files_[static_cast<std::size_t>(file)].path;
    for (Level& level : levels_) {
        const Decode& d = *level.decode;
        if (d.file.path == path && d.size == size && d.top <= first && d.top + d.lines >= last)
            return level;
    }
    auto d = std::make_shared<Decode>();
    d->file = files_[static_cast<std::size_t>(file)];
    d->size = size;
    d->top = top;
    d->lines = bottom - top;
    if (queue)
        decoder().start(d);
    levels_.push_back({d, gRedraw});
    return levels_.back();
}

QtPicture::Pixels QtPicture::pixels(const QRectF& from, double density) const {
    // The coarsest size that has a pixel for each of the surface's, or else the finest; of two
    // alike, the one from the picture's own file. A finer file is for a surface of its density
    // or more (a device pixel ratio of 2): on any other the picture's own is enough.
    int file = -1;
    QSize wanted;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const double finer = static_cast<double>(files_[i].size.width()) / size_.width();
        if (i > 0 && density < 0.98 * finer)
            break;
        for (const QSize size : sizesOf(files_[i])) {
            const bool fine = size.width() >= 0.98 * density * size_.width();
            const bool wantedFine = wanted.width() >= 0.98 * density * size_.width();
            if (file < 0 || (fine && (!wantedFine || size.width() < wanted.width())) ||
                (!fine && !wantedFine && size.width() > wanted.width())) {
                file = static_cast<int>(i);
                wanted = size;
            }
        }
    }
    Level* drawn = nullptr;
    if (file >= 0) {
        // A sheet's frames run row by row: of a band, the next one is decoded ahead, so that a
        // turning body does not go blurred for a moment as it moves on to the next row; but not
        // the bands of the largest sheet at its own size, which would hold 10 MB more.
        const std::shared_ptr<Decode> band = levelFor(file, wanted, from, true).decode;
        if (band->lines < band->size.height() &&
            qint64{band->size.width()} * band->lines <= kAheadLimit) {
            const int end = band->top + band->lines;
            const int next = end < band->size.height() ? end : 0;
            const double scale = static_cast<double>(size_.height()) / band->size.height();
            const std::shared_ptr<Decode> ahead =
                levelFor(file, wanted, QRectF(0.0, (next + 0.5) * scale, 1.0, 0.0), true).decode;
            // The other bands of this size hold none of the lines drawn: they go now, not after
            // a few seconds of holding a sheet's worth of bands.
            levels_.erase(std::remove_if(levels_.begin() + 1, levels_.end(),
                                         [&](const Level& l) {
                                             const Decode& d = *l.decode;
                                             return d.size == band->size &&
                                                    d.file.path == band->file.path &&
                                                    l.decode != band && l.decode != ahead;
                                         }),
                          levels_.end());
            for (Level& l : levels_) {
                if (l.decode == ahead)
                    l.lastUsed = gRedraw;
            }
        }
        Level& level = levelFor(file, wanted, from, true);
        level.lastUsed = gRedraw;
        if (isDone(*level.decode) && !level.decode->image.isNull())
            drawn = &level;
    }
    // Until it is decoded, the size at hand nearest to it that holds the lines drawn.
    if (drawn == nullptr) {
        const double wantedScale =
            file < 0 ? 1.0 : static_cast<double>(wanted.width()) / size_.width();
        double nearest = 0.0;
        for (Level& level : levels_) {
            const Decode& d = *level.decode;
            if (!isDone(d) || d.image.isNull())
                continue;
            const auto [first, last] = linesOf(from, d.size, size_);
            if (d.top > first || d.top + d.lines < last)
                continue;
            const double scale = static_cast<double>(d.size.width()) / size_.width();
            // Finer rather than coarser, of two as far off.
            const double distance =
                std::abs(std::log(scale / wantedScale)) - (scale > wantedScale ? 0.01 : 0.0);
            if (drawn == nullptr || distance < nearest) {
                drawn = &level;
                nearest = distance;
            }
        }
        if (drawn != nullptr)
            drawn->lastUsed = gRedraw;
    }
    if (drawn == nullptr)
        return {};
    const Decode& d = *drawn->decode;
    const double sx = static_cast<double>(d.size.width()) / size_.width();
    const double sy = static_cast<double>(d.size.height()) / size_.height();
    return {d.image, QRectF(from.left() * sx, from.top() * sy - d.top, from.width() * sx,
                            from.height() * sy)};
}

QImage QtPicture::image() const {
    if (files_.empty())
        return levels_.front().decode->image;
    Level& level = levelFor(0, size_, QRectF(QPointF(), QSizeF(size_)), false);
    level.lastUsed = gRedraw;
    run(level.decode);
    return level.decode->image;
}

bool QtPicture::letGoOfUnused(int before) const {
    const std::size_t held = levels_.size();
    if (held > 1)
        levels_.erase(std::remove_if(levels_.begin() + 1, levels_.end(),
                                     [before](const Level& l) { return l.lastUsed < before; }),
                      levels_.end());
    return levels_.size() < held;
}

unsigned QtPicture::decodesDone() {
    return gDecodesDone.load(std::memory_order_acquire);
}

void QtPicture::waitForDecodes() {
    decoder().waitForDone();
}

void QtPicture::beginRedraw() {
    ++gRedraw;
    if (gRedraw % kSweep == 0) {
        bool letGo = false;
        for (const QtPicture* picture : pictures())
            letGo = picture->letGoOfUnused(gRedraw - kUnusedRedraws) || letGo;
        if (letGo)
            giveBackFreedMemory();
    }
}

} // namespace apsis
