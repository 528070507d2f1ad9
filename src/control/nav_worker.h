#pragma once

#include "control/nav_path.h"

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace apsis {

// Looks for the path ahead on a thread of its own, so that the game's tick never waits for it.
// The tick hands it a request and takes whatever has been found so far; a new request drops the
// work in hand. The thread is started with the first request and stopped and joined by stop()
// and on destruction.
class PathWorker {
  public:
    // World steps between hand-overs: some 30 ms of work at most, so that a new request is taken
    // up within a tick or so, the path on screen grows smoothly, and the fine path (one step of
    // each stretch) stays ahead of the world.
    static constexpr int kStepsPerStretch = 32;

    PathWorker() = default;
    PathWorker(const PathWorker&) = delete;
    PathWorker& operator=(const PathWorker&) = delete;
    ~PathWorker();

    void start(PathRequest request);
    // The world stands at this place of the fine path: the worker finds the fine path a little
    // further ahead of it.
    void follow(std::size_t place);
    // Drops the work in hand and joins the thread.
    void stop();
    // What has been found for the latest request so far; nullptr before the first stretch.
    std::shared_ptr<const PathResult> latest() const;
    // Waits until the latest request's path is complete (tests and tools).
    void wait() const;
    bool isRunning() const { return thread_.joinable(); }

  private:
    void run();

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::optional<PathRequest> next_;         // waiting to be taken up
    std::shared_ptr<const PathResult> found_; // for the latest request
    std::atomic<bool> isDropped_ = false;     // the work in hand is for an older request
    bool isQuitting_ = false;
    bool isBusy_ = false;   // a request is being worked on
    std::size_t world_ = 0; // where the world stands on the fine path
    std::thread thread_;
};

} // namespace apsis
