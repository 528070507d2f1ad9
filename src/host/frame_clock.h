#pragma once

#include <cstdint>

namespace apsis {

// Paces the ticks to an average of exactly 30 a second: tick k is due k/30 s after the schedule
// began, so millisecond timers (34, 33, 33 ms ...) do not drift. A tick that comes so late that
// the next one is already due starts a new schedule: late ticks are not made up, and the game
// simply runs slower.
class FrameClock {
  public:
    // Starts the schedule at nowNs.
    explicit FrameClock(std::int64_t nowNs) : originNs_(nowNs) {}

    // Milliseconds from the start of the schedule to the first tick.
    int firstWait() const { return waitMs(dueNs(next_), originNs_); }
    // Called as a tick fires at nowNs; answers how many milliseconds to wait for the next one.
    int tick(std::int64_t nowNs);

  private:
    std::int64_t dueNs(std::int64_t tickNumber) const;
    static int waitMs(std::int64_t dueNs, std::int64_t nowNs);

    std::int64_t originNs_; // when the schedule started
    std::int64_t next_ = 1; // the number of the tick waited for
};

} // namespace apsis
