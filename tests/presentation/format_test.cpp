#include "presentation/format.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace apsis {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMax = std::numeric_limits<double>::max();

struct Case {
    double value;
    const char* text;
};

void expectAll(std::string (*format)(double), const std::vector<Case>& cases) {
    for (const Case& c : cases)
        EXPECT_EQ(format(c.value), c.text) << "for " << c.value;
}

TEST(Format, Percent) {
    expectAll(formatPercent, {{1.0, "100.0%"},
                              {0.5, " 50.0%"},
                              {-0.0, "  0.0%"},
                              {0.123, " 12.3%"},
                              {12.5, "1250.0%"},
                              {0.00049, "  0.0%"},
                              {-0.05, " -5.0%"},
                              {kNaN, "NaN%"},
                              {kInf, "inf%"},
                              {kMax, "inf%"}});
}

TEST(Format, AccelSwitchesToMillimetresAtOneHundredth) {
    expectAll(formatAccel, {{1.0, "1.000m/s/s"},
                            {0.011, "0.011m/s/s"},
                            {0.01, "10.000mm/s/s"},
                            {0.005, "5.000mm/s/s"},
                            {0.0, "0.000mm/s/s"},
                            {1234.5, "1,234.500m/s/s"},
                            {1234567.0, "1,234,567.000m/s/s"},
                            {kNaN, "NaNmm/s/s"},
                            {kInf, "infm/s/s"}});
}

TEST(Format, DistanceByItsSize) {
    expectAll(formatDist, {{1.49e11, "1.000AU"},
                           {1.5e9, "0.010AU"},
                           {1.49e9, "1,490,000km"},
                           {384400000.0, "384,400km"},
                           {10000.4, "10km"},
                           {10000.0, "10,000m"},
                           {1234.5, "1,235m"}, // a half goes up
                           {200.0, "200m"},
                           {100.0, "100.0m"},
                           {42.24, "42.2m"},
                           {0.25, "0.3m"},
                           {-0.0, "0.0m"},
                           {-0.25, "-0.3m"},
                           {-20000.0, "-20000.0m"},
                           {kNaN, "NaNm"},
                           {-kInf, "-infm"}});
    // Huge distances stay plain numbers: grouped in AU, ungrouped below zero (all 309 digits).
    const std::string far = formatDist(1e300);
    EXPECT_EQ(far.find_first_not_of("0123456789,"), far.size() - 6);
    EXPECT_EQ(far.substr(far.size() - 6), ".000AU");
    const std::string widest = formatDist(-kMax);
    EXPECT_EQ(widest.size(), 313u);
    EXPECT_EQ(widest.substr(0, 8), "-1797693");
}

TEST(Format, RelativeSpeedInMetresOrKilometresPerSecond) {
    struct VelCase {
        double avx, avy, bvx, bvy; // m/s
        const char* text;
    };
    const VelCase cases[] = {
        {29784.7, 0.0, 0.0, 0.0, "29.78km/s"},    {0.0, -1000.5, 0.0, 0.0, "1.00km/s"},
        {603.0, 798.0, 3.0, -2.0, "1,000.00m/s"}, {4.5, -6.0, 0.0, 0.0, "7.50m/s"},
        {-20.0, 7.0, -20.0, 7.0, "0.00m/s"},      {0.125, 0.0, 0.0, 0.0, "0.13m/s"},
        {-1.005, 0.0, 0.0, 0.0, "1.00m/s"}, // below the half, as the double holds it
        {kNaN, 0.0, 0.0, 0.0, "NaNm/s"},          {kInf, 0.0, 0.0, 0.0, "infkm/s"},
    };
    for (const VelCase& c : cases)
        EXPECT_EQ(formatVelDiff(Position(1e9, 5.0, c.avx, c.avy), Position(0, 0, c.bvx, c.bvy)),
                  c.text)
            << c.avx << ", " << c.avy;
}

TEST(Format, RunningTimeShowsEveryUnitFromTheLargestNonZeroOneDown) {
    expectAll(formatTime, {{0.0, "<00s>"},
                           {59.9, "<59s>"},
                           {75.0, "<01m 15s>"},
                           {3600.0, "<01h 00m 00s>"},
                           {86400.0, "<01d 00h 00m 00s>"},
                           {90061.0, "<01d 01h 01m 01s>"},
                           {31536000.0, "<1y 00d 00h 00m 00s>"},
                           {40000000.0, "<1y 97d 23h 06m 40s>"},
                           {86399.5, "<23h 59m 59s>"},
                           {-3.5, "<-03s>"},
                           {-75.0, "<-01m -15s>"},
                           {-0.5, "<00s>"},
                           {2147483648.0, "<68y 35d 03h 14m 08s>"}, // past a 32-bit count
                           {1e300, "<292471208677y 195d 15h 30m 07s>"},
                           {-1e300, "<-292471208677y -195d -15h -30m -08s>"},
                           {kInf, "<inf>"},
                           {-kInf, "<-inf>"},
                           {kNaN, "<NaN>"}});
}

TEST(Format, FixedTimeShowsOnlyTheUnitsThatAreNotZero) {
    expectAll(formatFixedTime, {{86400.0, "<01d>"},
                                {432000.0, "<05d>"},
                                {540000.0, "<06d 06h>"},
                                {1080000.0, "<12d 12h>"},
                                {1728000.0, "<20d>"},
                                {3660.0, "<01h 01m>"},
                                {90061.0, "<01d 01h 01m 01s>"},
                                {31536000.0, "<1y>"},
                                {59.0, "<59s>"},
                                {-75.0, "<-01m -15s>"},
                                {0.5, "<00s>"},
                                {4e9, "<126y 306d 07h 06m 40s>"},
                                {-1e300, "<-292471208677y -195d -15h -30m -08s>"},
                                {kInf, "<inf>"},
                                {-kInf, "<-inf>"},
                                {kNaN, "<NaN>"}});
}

} // namespace
} // namespace apsis
