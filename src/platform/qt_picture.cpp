#include "platform/qt_picture.h"

#include "platform/qt_picture_decoding.h"

#include <algorithm>
#include <cmath>

namespace apsis {
namespace {

// Pictures larger than this are decoded a band of lines at a time: a band as tall as an eighth of
// the picture, or the few bands that what is drawn reaches into.
constexpr qint64 kWholeLimit = qint64{2048} * 2048; // pixels
constexpr int kBands = 8;
constexpr qint64 kAheadLimit = qint64{2} * 1024 * 1024; // pixels of a band decoded ahead
// What was not drawn in this many redraws is let go; they are looked over every kSweep redraws.
constexpr int kUnusedRedraws = 45;
constexpr int kSweep = 15;
// The most the pictures hold decoded, their coarsest sizes aside, once a new size is asked for:
// past it, what was drawn longest ago goes at once, not a few seconds later. A new level would
// otherwise hold the last one's large pictures beside its own. What was drawn in this redraw or
// the one before always stays: the craft and the station drawn close hold 22.5 MB.
constexpr qint64 kHeldLimit = qint64{24} * 1024 * 1024; // bytes

int gRedraw = 0; // redraws begun, on the drawing thread

// Every picture made from files, for letting go of what they hold. Never destroyed: pictures
// held by other static objects may outlive any order of destruction.
std::vector<const QtPicture*>& pictures() {
    static auto* all = new std::vector<const QtPicture*>();
    return *all;
}

qint64 bytesOf(const QtPicture::Decode& d) {
    return qint64{d.size.width()} * d.lines * 4;
}

// The lines of a picture at size that a draw of from (in pixels of the picture's own size
// `own`) reads: first to last, last excluded. A draw's edge that strays over a line's boundary by
// a rounding error, as one cut to the view can, does not read the line: it would cost a second
// band, 13 MB for the craft's sheet at its own size.
std::pair<int, int> linesOf(const QRectF& from, QSize size, QSize own) {
    constexpr double kSliver = 1e-6; // of a line
    const double scale = static_cast<double>(size.height()) / own.height();
    const int first = std::clamp(static_cast<int>(std::floor(from.top() * scale + kSliver)), 0,
                                 size.height() - 1);
    const int last = std::clamp(static_cast<int>(std::ceil(from.bottom() * scale - kSliver)),
                                first + 1, size.height());
    return {first, last};
}

// The sizes a file decodes to cheaply: its own, and JPEG's halves, quarters and eighths; a GIF,
// which our own reader scales as it decodes, also a sixteenth: its coarsest size is held for as
// long as the picture, and the craft's sheet at an eighth would hold 1.6 MB of it.
std::vector<QSize> sizesOf(const PictureFile& file) {
    std::vector<QSize> sizes;
    const bool gif = file.path.extension() == ".gif";
    for (const int reduction : {16, 8, 4, 2, 1}) {
        if (reduction == 16 && !gif)
            continue;
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
        if (d.file.path == path && d.size == size && d.top <= first && d.top + d.lines >= last) {
            level.lastUsed = gRedraw;
            return level;
        }
    }
    auto d = std::make_shared<Decode>();
    d->file = files_[static_cast<std::size_t>(file)];
    d->size = size;
    d->top = top;
    d->lines = bottom - top;
    if (!levels_.empty())
        makeRoomFor(bytesOf(*d));
    if (queue)
        decoding::queue(d);
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
        // the bands of the largest sheets at their own size, which would hold 13 MB more.
        const std::shared_ptr<Decode> band = levelFor(file, wanted, from, true).decode;
        if (band->lines < band->size.height()) {
            std::shared_ptr<Decode> ahead;
            if (qint64{band->size.width()} * band->lines <= kAheadLimit) {
                const int end = band->top + band->lines;
                const int next = end < band->size.height() ? end : 0;
                const double scale = static_cast<double>(size_.height()) / band->size.height();
                ahead = levelFor(file, wanted, QRectF(0.0, (next + 0.5) * scale, 1.0, 0.0), true)
                            .decode;
            }
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
        }
        Level& level = levelFor(file, wanted, from, true);
        level.lastUsed = gRedraw;
        if (decoding::isDone(*level.decode) && !level.decode->image.isNull())
            drawn = &level;
    }
    // Until it is decoded, the size at hand nearest to it that holds the lines drawn.
    if (drawn == nullptr) {
        const double wantedScale =
            file < 0 ? 1.0 : static_cast<double>(wanted.width()) / size_.width();
        double nearest = 0.0;
        for (Level& level : levels_) {
            const Decode& d = *level.decode;
            if (!decoding::isDone(d) || d.image.isNull())
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
    decoding::run(level.decode);
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

void QtPicture::makeRoomFor(qint64 bytes) {
    qint64 held = bytes;
    for (const QtPicture* picture : pictures()) {
        for (std::size_t i = 1; i < picture->levels_.size(); ++i)
            held += bytesOf(*picture->levels_[i].decode);
    }
    bool letGo = false;
    while (held > kHeldLimit) {
        const QtPicture* owner = nullptr;
        std::size_t oldest = 0;
        for (const QtPicture* picture : pictures()) {
            const auto& levels = picture->levels_;
            for (std::size_t i = 1; i < levels.size(); ++i) {
                if (levels[i].lastUsed < (owner ? owner->levels_[oldest].lastUsed : gRedraw - 1)) {
                    owner = picture;
                    oldest = i;
                }
            }
        }
        if (owner == nullptr)
            break;
        held -= bytesOf(*owner->levels_[oldest].decode);
        owner->levels_.erase(owner->levels_.begin() + static_cast<std::ptrdiff_t>(oldest));
        letGo = true;
    }
    if (letGo)
        decoding::giveBackFreedMemory();
}

unsigned QtPicture::decodesDone() {
    return decoding::done();
}

void QtPicture::waitForDecodes() {
    decoding::waitForAll();
}

void QtPicture::beginRedraw() {
    ++gRedraw;
    if (gRedraw % kSweep == 0) {
        bool letGo = false;
        for (const QtPicture* picture : pictures())
            letGo = picture->letGoOfUnused(gRedraw - kUnusedRedraws) || letGo;
        if (letGo)
            decoding::giveBackFreedMemory();
    }
}

} // namespace apsis
