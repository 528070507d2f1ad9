#pragma once

#include "platform/qt_picture.h"

#include <atomic>
#include <memory>
#include <mutex>

#include <QImage>
#include <QSize>

// The decoding of pictures, on a thread of its own, for QtPicture.
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

namespace decoding {

// Decodes d on this thread, unless it is done or being done, when this waits for it.
void run(const std::shared_ptr<QtPicture::Decode>& d);
// Whether d is decoded, without waiting.
bool isDone(const QtPicture::Decode& d);
// Queues d for the decoding thread.
void queue(std::shared_ptr<QtPicture::Decode> d);
// Waits until every decode queued is done.
void waitForAll();
// A count of the decodes the thread has done.
unsigned done();
// Hands the memory the allocator holds free back to the system.
void giveBackFreedMemory();

} // namespace decoding
} // namespace apsis
