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
        world_ = 0;
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

void PathWorker::follow(std::size_t place) {
    {
        const std::lock_guard lock(mutex_);
        if (place == world_)
            return;
        world_ = place;
    }
    changed_.notify_all();
}

std::shared_ptr<const PathResult> PathWorker::latest() const {
    const std::lock_guard lock(mutex_);
    return found_;
}

void PathWorker::wait() const {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] {
        return isQuitting_ || (!next_ && !isBusy_) ||
               (found_ && (found_->isComplete || found_->isWaiting));
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
        std::size_t world = 0;
        while (!isDropped_ && !finder.result().isComplete) {
            const bool isGoing = finder.advance(kStepsPerStretch, world);
            auto found = std::make_shared<const PathResult>(finder.result());
            lock.lock();
            if (!isDropped_)
                found_ = std::move(found);
            changed_.notify_all();
            // Far enough ahead of the world: nothing to do until it moves on.
            if (!isGoing && !finder.result().isComplete)
                changed_.wait(lock, [&] { return isDropped_ || world_ != world; });
            world = world_;
            lock.unlock();
        }
        lock.lock();
        isBusy_ = false;
        changed_.notify_all();
    }
}

} // namespace apsis
