#pragma once

#include <cstddef>
#include <cstdint>

namespace apsis {

// Blends count bytes of two lines of pixels, channel by channel, with weight w (of 256) of lower:
// out = (upper * (256 - w) + lower * w) / 256, rounded down. The compiler does it sixteen bytes at
// a time, or thirty-two on a processor that can.
void blendLines(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
                std::size_t count, std::uint16_t w);

} // namespace apsis
