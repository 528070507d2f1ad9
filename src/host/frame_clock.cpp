#include "host/frame_clock.h"

namespace apsis {

std::int64_t FrameClock::dueNs(std::int64_t tickNumber) const {
    // k * 1e9 / 30 in whole nanoseconds from the origin: no third of a nanosecond piles up.
    return originNs_ + tickNumber * 1'000'000'000 / 30;
}

int FrameClock::waitMs(std::int64_t dueNs, std::int64_t nowNs) {
    // Rounded up, so that a tick never fires before it is due.
    return static_cast<int>((dueNs - nowNs + 999'999) / 1'000'000);
}

int FrameClock::tick(std::int64_t nowNs) {
    ++next_;
    if (nowNs >= dueNs(next_)) {
        // So late that the next tick is already due: a fresh schedule from now.
        originNs_ = nowNs;
        next_ = 1;
    }
    return waitMs(dueNs(next_), nowNs);
}

} // namespace apsis
