#include "platform/qt_magnify.h"

#include <utility>

// Where two magnified draws of a picture write different pixels.
namespace apsis {
namespace {

// Calls add(start, end) for each run of indices from .. to (inclusive) where a (whose first
// index is aStart) and b (from bStart) differ; false, having called it for none, when there are
// more than most runs.
template <typename Add>
bool differingRuns(const std::vector<std::uint64_t>& a, int aStart,
                   const std::vector<std::uint64_t>& b, int bStart, int from, int to, int most,
                   Add add) {
    std::vector<std::pair<int, int>> runs;
    int start = -1;
    for (int i = from; i <= to + 1; ++i) {
        const bool differs = i <= to && a[static_cast<std::size_t>(i - aStart)] !=
                                            b[static_cast<std::size_t>(i - bStart)];
        if (differs && start < 0) {
            start = i;
        } else if (!differs && start >= 0) {
            if (static_cast<int>(runs.size()) == most)
                return false;
            runs.emplace_back(start, i);
            start = -1;
        }
    }
    for (const auto& [first, end] : runs)
        add(first, end);
    return true;
}

} // namespace

QRegion changedPixels(const MagnifiedSampling& before, const MagnifiedSampling& now) {
    QRegion changed = QRegion(before.area).united(now.area);
    const QRect both = before.area.intersected(now.area);
    if (before.image != now.image || before.readable != now.readable || both.isEmpty())
        return changed;
    changed -= both;
    // Where both draw, the columns and the lines sampled differently; many runs of them, a
    // picture moved or scaled, and the whole of it changes.
    constexpr int kMostRuns = 16;
    std::vector<QRect> strips;
    const bool few =
        differingRuns(before.across, before.area.left(), now.across, now.area.left(), both.left(),
                      both.right(), kMostRuns,
                      [&](int left, int end) {
                          strips.emplace_back(left, both.top(), end - left, both.height());
                      }) &&
        differingRuns(before.down, before.area.top(), now.down, now.area.top(), both.top(),
                      both.bottom(), kMostRuns, [&](int top, int end) {
                          strips.emplace_back(both.left(), top, both.width(), end - top);
                      });
    if (!few)
        return changed += both;
    for (const QRect& strip : strips)
        changed += strip;
    return changed;
}

} // namespace apsis
