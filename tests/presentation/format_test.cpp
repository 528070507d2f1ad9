#include "presentation/format.h"

#include <gtest/gtest.h>
#include <limits>
#include <span>
#include <string>

namespace apsis {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMax = std::numeric_limits<double>::max();

struct Case {
    double value;
    const char* text;
};

void expectAll(std::string (*format)(double), std::span<const Case> cases) {
    for (const Case& c : cases)
        EXPECT_EQ(format(c.value), c.text) << "for " << c.value;
}

TEST(Format, NumbersByTheirUnitAndSize) {
    const Case percent[] = {
        {0.5, " 50.0%"}, {-0.0, "  0.0%"},  {-0.05, " -5.0%"},
        {kNaN, "NaN%"},  {12.5, "1250.0%"}, // never grouped
    };
    expectAll(formatPercent, percent);
    // Millimetres from one hundredth down; NaN takes the smaller unit.
    const Case accel[] = {
        {0.011, "0.011m/s/s"}, {0.01, "10.000mm/s/s"}, {1234567.0, "1,234,567.000m/s/s"},
        {kNaN, "NaNmm/s/s"},   {kInf, "infm/s/s"},
    };
    expectAll(formatAccel, accel);
    const Case distance[] = {
        {1.49e11, "1.000AU"}, {1.49e9, "1,490,000km"}, {10000.4, "10km"}, {10000.0, "10,000m"},
        {1234.5, "1,235m"},   {100.0, "100.0m"},       {0.25, "0.3m"},    {-0.0, "0.0m"},
        {-0.25, "-0.3m"},     {-20000.0, "-20000.0m"},
    };
    expectAll(formatDist, distance);
    // Huge distances stay plain numbers, ungrouped below zero: all 309 digits.
    const std::string widest = formatDist(-kMax);
    EXPECT_EQ(widest.size(), 313u);
    EXPECT_EQ(widest.substr(0, 8), "-1797693");

    struct VelCase {
        double avx, avy, bvx, bvy; // m/s
        const char* text;
    };
    const VelCase cases[] = {
        {29784.7, 0.0, 0.0, 0.0, "29.78km/s"},    {4.5, -6.0, 0.0, 0.0, "7.50m/s"},
        {603.0, 798.0, 3.0, -2.0, "1,000.00m/s"}, {0.125, 0.0, 0.0, 0.0, "0.13m/s"},
        {-1.005, 0.0, 0.0, 0.0, "1.00m/s"}, // below the half, as the double holds it
    };
    for (const VelCase& c : cases)
        EXPECT_EQ(formatVelDiff(Position(1e9, 5.0, c.avx, c.avy), Position(0, 0, c.bvx, c.bvy)),
                  c.text)
            << c.avx << ", " << c.avy;
}

TEST(Format, TimesRunningFromTheLargestUnitOrFixedToTheUnitsNotZero) {
    const Case running[] = {
        {0.0, "<00s>"},
        {59.9, "<59s>"},
        {75.0, "<01m 15s>"},
        {3600.0, "<01h 00m 00s>"},
        {31536000.0, "<1y 00d 00h 00m 00s>"},
        {-3.5, "<-03s>"},
        {-75.0, "<-01m -15s>"},
        {2147483648.0, "<68y 35d 03h 14m 08s>"}, // past a 32-bit count
        {1e300, "<292471208677y 195d 15h 30m 07s>"},
        {-1e300, "<-292471208677y -195d -15h -30m -08s>"},
        {-kInf, "<-inf>"},
        {kNaN, "<NaN>"},
    };
    expectAll(formatTime, running);
    const Case fixed[] = {
        {3660.0, "<01h 01m>"}, {90061.0, "<01d 01h 01m 01s>"},
        {31536000.0, "<1y>"},  {-75.0, "<-01m -15s>"},
        {0.5, "<00s>"},        {kInf, "<inf>"},
    };
    expectAll(formatFixedTime, fixed);
}

} // namespace
} // namespace apsis
