#include "platform/qt_blend_lines.h"

namespace apsis {
namespace {

inline __attribute__((always_inline)) void blendIn(const std::uint8_t* __restrict upper,
                                                   const std::uint8_t* __restrict lower,
                                                   std::uint8_t* __restrict out, std::size_t count,
                                                   std::uint16_t w) {
    const auto v = static_cast<std::uint16_t>(256 - w);
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<std::uint8_t>((upper[i] * v + lower[i] * w) >> 8);
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) void blendWide(const std::uint8_t* upper, const std::uint8_t* lower,
                                               std::uint8_t* out, std::size_t count,
                                               std::uint16_t w) {
    blendIn(upper, lower, out, count, w);
}
#endif

} // namespace

// The processor is asked once, in plain code. A function the loader picks by the processor (an
// indirect function) would run before the sanitizers' runtimes are up, and crash under them.
void blendLines(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
                std::size_t count, std::uint16_t w) {
#if defined(__x86_64__)
    static const bool isWide = __builtin_cpu_supports("avx2");
    if (isWide) {
        blendWide(upper, lower, out, count, w);
        return;
    }
#endif
    blendIn(upper, lower, out, count, w);
}

} // namespace apsis
