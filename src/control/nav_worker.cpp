#include "control/nav_worker.h"

#include <utility>

namespace apsis {
PathWorker::~PathWorker() {
    stop();
}

void PathWorker::start(PathRequest request) {
    {
        const std::lock_guard lock(mutex_);
        next_ = std::move(request);
        found_.reset();
        isDropped_ = true;
        isQuitting_ = false;
    }
    changed_.notify_all();
    if (!thread_.joinable())
        thread_ = std::thread([this] { run(); });
}

void PathWorker::stop() {
    {
        const std::lock_guard lock(mutex_);
        isQuitting_ = true;
        isDropped_ = true;
        next_.reset();
        found_.reset();
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

std::shared_ptr<const PathResult> PathWorker::latest() const {
    const std::lock_guard lock(mutex_);
    return found_;
}

void PathWorker::wait() const {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] {
        return isQuitting_ || (!next_ && !isBusy_) || (found_ && found_->isComplete);
    });
}

void PathWorker::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return isQuitting_ || next_.has_value(); });
        if (isQuitting_)
            return;
        PathRequest request = std::move(*next_);
        next_.reset();
        isDropped_ = false;
        isBusy_ = true;
        lock.unlock();
        // Out of the lock: a planned burn is flown as the finder starts, which may take a while.
        PathFinder finder(std::move(request));
        bool isGoing = true;
        while (isGoing && !isDropped_) {
            isGoing = finder.advance(kStepsPerStretch);
            auto found = std::make_shared<const PathResult>(finder.result());
            const std::lock_guard handOver(mutex_);
            if (!isDropped_)
                found_ = std::move(found);
        }
        lock.lock();
        isBusy_ = false;
        changed_.notify_all();
    }
}

} // namespace apsis
