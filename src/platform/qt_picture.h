#pragma once

#include "assets/resources.h"

#include <filesystem>
#include <memory>
#include <vector>

#include <QImage>
#include <QRectF>
#include <QSize>

namespace apsis {

// One file a picture can be decoded from, and its size in pixels as its header gives it.
struct PictureFile {
    std::filesystem::path path;
    QSize size;
};

// A picture held by Qt. Its size is known from the start, from its file's header; its pixels are
// decoded when a draw asks for them, at the size drawn: JPEG decodes at 1/2, 1/4 and 1/8 of its
// size for little more than the cost of reading the file, so a sheet drawn small costs what a
// small sheet would. A picture may come in a second, finer file (the screens, at twice the size,
// for screens of twice the density), used when it is drawn that finely. Of a large picture drawn
// large, only the band of lines that is drawn is decoded.
//
// Decoding runs on a worker thread, one picture at a time, and a draw takes the nearest size at
// hand meanwhile; the coarsest size is asked for as the picture is made. What was not drawn for
// a few seconds is let go, the coarsest size excepted. The worker only reads files and decodes:
// the pictures themselves are touched by the drawing thread alone.
class QtPicture final : public Picture {
  public:
    // A picture already decoded, drawn from these pixels at every size.
    explicit QtPicture(QImage image);
    // A picture of files.front()'s size; a second file, when given, holds it at a finer size.
    explicit QtPicture(std::vector<PictureFile> files);
    ~QtPicture() override;
    QtPicture(const QtPicture&) = delete;
    QtPicture& operator=(const QtPicture&) = delete;

    float width() const override { return static_cast<float>(size_.width()); }
    float height() const override { return static_cast<float>(size_.height()); }

    // Pixels for drawing the part from (in this picture's pixels) at density pixels of the surface
    // to one of the picture: an image and where that part lies in it. Null when nothing is decoded
    // yet, or the file no longer decodes to the picture it was.
    struct Pixels {
        QImage image;
        QRectF from;
    };
    Pixels pixels(const QRectF& from, double density) const;
    // The whole picture at its own size, decoded now if it is not yet; null when it no longer
    // decodes to the size it announced.
    QImage image() const;

    // A count that moves on whenever a decode is done: the view may then be drawn more finely.
    static unsigned decodesDone();
    // Waits until every decode asked for is done.
    static void waitForDecodes();
    // Begins a redraw: every few seconds of redraws, what was not drawn lately is let go.
    static void beginRedraw();

    struct Decode; // one size, or one band of lines of it, being decoded or done

  private:
    // A size the picture is held at: the whole of it, or a band of its lines.
    struct Level {
        std::shared_ptr<Decode> decode;
        int lastUsed = 0; // the redraw that last drew from it
    };
    // The level holding the lines of from that a draw from file at size reads, made and queued
    // when there is none.
    Level& levelFor(int file, QSize size, const QRectF& from, bool queue) const;
    // Lets go of the sizes last drawn before the given redraw; whether there were any.
    bool letGoOfUnused(int before) const;
    // Lets go of the sizes of every picture drawn longest ago, none drawn in this redraw or the
    // one before, until what they hold and bytes more are within the budget.
    static void makeRoomFor(qint64 bytes);

    QSize size_;
    std::vector<PictureFile> files_;
    mutable std::vector<Level> levels_; // the coarsest first, never let go
};

} // namespace apsis
