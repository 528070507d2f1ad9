#include "presentation/format.h"

#include "physics/numeric.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace apsis {
namespace {

// How a number is laid out: the digit patterns of the display.
struct Pattern {
    int decimals;     // digits after the point, rounded
    int minDigits;    // integer digits always shown, zero-padded on the left
    int padWidth;     // the integer part with its sign is padded with blanks to this width
    bool grouped;     // integer digits in threes with ","
    const char* unit; // the literal suffix
};

constexpr Pattern kPercent{1, 1, 3, false, "%"};               // __0.0%
constexpr Pattern kAccel{3, 1, 0, true, "m/s/s"};              // #,##0.000m/s/s
constexpr Pattern kMilliAccel{3, 1, 0, true, "mm/s/s"};        // #,##0.000mm/s/s
constexpr Pattern kAstronomical{3, 1, 0, true, "AU"};          // #,##0.000AU
constexpr Pattern kKilometres{0, 0, 0, true, "km"};            // #,###km
constexpr Pattern kMetres{0, 0, 0, true, "m"};                 // #,###m
constexpr Pattern kNearMetres{1, 1, 0, false, "m"};            // #0.0m
constexpr Pattern kKilometresPerSecond{2, 1, 0, true, "km/s"}; // #,##0.00km/s
constexpr Pattern kMetresPerSecond{2, 1, 0, true, "m/s"};      // #,##0.00m/s

// The fixed-point digits of a magnitude, rounded to nearest with exact halves away from zero.
// to_chars rounds the exact binary value correctly but sends an exact half to the even digit, so
// an exact half is first moved one unit in the last place outwards; being exact, it lies far from
// any other rounding boundary.
std::string fixedDigits(double magnitude, int decimals) {
    const double scale = E(2.0, decimals); // an exact half of the last digit is an odd multiple
    const double scaled = magnitude * scale;
    if (std::isfinite(scaled) && std::fma(magnitude, scale, -scaled) == 0.0 &&
        std::fmod(scaled, 2.0) == 1.0)
        magnitude = std::nextafter(magnitude, std::numeric_limits<double>::infinity());
    // The largest double has 309 integer digits.
    std::array<char, 400> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::fixed, decimals);
    return std::string(buffer.data(), result.ptr);
}

std::string formatNumber(double value, const Pattern& p) {
    if (std::isnan(value))
        return std::string("NaN") + p.unit;
    if (std::isinf(value))
        return std::string(value < 0.0 ? "-inf" : "inf") + p.unit;

    // Only values below zero get a sign, so -0.0 is shown as 0.
    const bool negative = value < 0.0;
    const std::string digits = fixedDigits(std::fabs(value), p.decimals);
    const std::size_t point = digits.find('.');
    std::string whole = digits.substr(0, point);
    const std::string fraction = point == std::string::npos ? "" : digits.substr(point);

    // The pattern decides how many leading zeros stay: "#,###" shows none, "00" two.
    std::size_t firstNonZero = whole.find_first_not_of('0');
    if (firstNonZero == std::string::npos)
        firstNonZero = whole.size();
    whole.erase(0, firstNonZero);
    const auto minDigits = static_cast<std::size_t>(p.minDigits);
    if (whole.size() < minDigits)
        whole.insert(0, minDigits - whole.size(), '0');

    if (p.grouped)
        for (std::size_t i = whole.size(); i > 3; i -= 3)
            whole.insert(i - 3, 1, ',');

    if (negative)
        whole.insert(0, 1, '-');
    const auto padWidth = static_cast<std::size_t>(p.padWidth);
    if (whole.size() < padWidth)
        whole.insert(0, padWidth - whole.size(), ' ');
    return whole + fraction + p.unit;
}

// Whole seconds, truncated towards zero. The count is 64 bits wide, so the clock reads true far
// past the 68 years a 32-bit count would hold; beyond 2^63 s it stops at the largest count.
std::int64_t wholeSeconds(double t) {
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    if (t >= kLimit)
        return std::numeric_limits<std::int64_t>::max();
    if (t <= -kLimit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(t);
}

// A count with at least two digits, zero-padded, its sign in front: 5 is "05", -1 is "-01".
std::string twoDigits(std::int64_t n) {
    const auto magnitude =
        n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
    std::string digits = std::to_string(magnitude);
    if (digits.size() < 2)
        digits.insert(0, 1, '0');
    return n < 0 ? "-" + digits : digits;
}

// A duration split into the game's units; a year is always 365 days. Each unit keeps the sign of
// the remainder it comes from.
struct Duration {
    std::int64_t years;
    std::int64_t days;
    std::int64_t hours;
    std::int64_t minutes;
    std::int64_t seconds;
};

Duration split(std::int64_t s) {
    const std::int64_t totalMinutes = s / 60;
    const std::int64_t totalHours = totalMinutes / 60;
    const std::int64_t totalDays = totalHours / 24;
    return {totalDays / 365, totalDays % 365, totalHours % 24, totalMinutes % 60,
            s - 60 * totalMinutes};
}

// The text for a duration that is not a number of seconds at all, or is endless; empty for a
// real duration.
std::string notACount(double t) {
    if (std::isnan(t))
        return "<NaN>";
    if (std::isinf(t))
        return t < 0.0 ? "<-inf>" : "<inf>";
    return {};
}

} // namespace

std::string formatPercent(double fraction) {
    return formatNumber(fraction * 100, kPercent);
}

std::string formatAccel(double acceleration) {
    if (acceleration > 0.01)
        return formatNumber(acceleration, kAccel);
    return formatNumber(acceleration * 1000, kMilliAccel);
}

std::string formatDist(double distance) {
    if (distance > E(1.49, 9))
        return formatNumber(distance / E(1.49, 11), kAstronomical);
    if (distance > 10000)
        return formatNumber(distance / 1000, kKilometres);
    if (distance > 100)
        return formatNumber(distance, kMetres);
    return formatNumber(distance, kNearMetres);
}

std::string formatVelDiff(const Position& a, const Position& b) {
    const double v = velDiff(a, b);
    if (v > 1000)
        return formatNumber(v / 1000, kKilometresPerSecond);
    return formatNumber(v, kMetresPerSecond);
}

std::string formatTime(double seconds) {
    if (std::string special = notACount(seconds); !special.empty())
        return special;
    const Duration d = split(wholeSeconds(seconds));
    std::string text("<");
    if (d.years != 0)
        text += std::to_string(d.years) + "y ";
    if (d.years != 0 || d.days != 0)
        text += twoDigits(d.days) + "d ";
    if (d.years != 0 || d.days != 0 || d.hours != 0)
        text += twoDigits(d.hours) + "h ";
    if (d.years != 0 || d.days != 0 || d.hours != 0 || d.minutes != 0)
        text += twoDigits(d.minutes) + "m ";
    text += twoDigits(d.seconds) + "s>";
    return text;
}

std::string formatFixedTime(double seconds) {
    if (std::string special = notACount(seconds); !special.empty())
        return special;
    const Duration d = split(wholeSeconds(seconds));
    std::string text("<");
    if (d.years != 0)
        text += std::to_string(d.years) + "y ";
    if (d.days != 0)
        text += twoDigits(d.days) + "d ";
    if (d.hours != 0)
        text += twoDigits(d.hours) + "h ";
    if (d.minutes != 0)
        text += twoDigits(d.minutes) + "m ";
    if (d.seconds != 0)
        text += twoDigits(d.seconds) + "s ";
    // Under a second no unit would show: say so with the smallest one.
    if (text.size() == 1)
        return "<00s>";
    text.back() = '>';
    return text;
}

} // namespace apsis
