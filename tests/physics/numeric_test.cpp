#include "physics/numeric.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace apsis {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr int kIntMax = std::numeric_limits<int>::max();

TEST(E, ScalesByRepeatedTensAndKeepsItsLastBit) {
    struct Case {
        double mantissa;
        int exponent;
        double expected;
    };
    // Several constants of the world come out one bit off their decimal literal; a power function
    // or a literal would give the literal. A wild exponent ends at once.
    const Case cases[] = {
        {6.67, -11, 6.670000000000001e-11},
        {2.36, 6, 2359999.9999999995},
        {1.9, 27, 1.9000000000000004e+27},
        {-2.1, 7, -21000000.0},
        {1.0, kIntMax, kInf},
        {1.0, std::numeric_limits<int>::min(), 0.0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(E(c.mantissa, c.exponent), c.expected) << c.mantissa << "e" << c.exponent;
}

// The plain loop, one rounded step of 2*pi at a time.
double balanceStepByStep(double angle) {
    while (angle > kTwoPi)
        angle -= kTwoPi;
    while (angle < 0.0)
        angle += kTwoPi;
    return angle;
}

TEST(Balance, KeepsBothEndsAndRoundsAsTheStepByStepLoop) {
    struct Case {
        double angle;
        double expected;
    };
    const Case cases[] = {
        {kTwoPi, kTwoPi}, {0.0, 0.0},           {-0.5, kTwoPi - 0.5},
        {-kTwoPi, 0.0},   {2 * kTwoPi, kTwoPi}, {std::numeric_limits<double>::quiet_NaN(), 0.0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(balance(c.angle), c.expected) << c.angle;
    EXPECT_FALSE(std::signbit(balance(-kTwoPi))); // a positive zero, as the additions leave it

    // Far out the fast path must land on the loop's bits, also around the edges of binades.
    for (const double edge : {40.0, 4096.0, 65536.0, 1234567.8, 4194304.0}) {
        for (const double offset : {-2 * kTwoPi, -1e-9, 0.0, 1e-9, 3 * kTwoPi})
            for (const double angle : {edge + offset, -edge - offset})
                EXPECT_EQ(balance(angle), balanceStepByStep(angle)) << std::hexfloat << angle;
    }
    // Where the loop would never end, the answer still comes back in the turn.
    for (const double angle : {-kInf, 1e300, -1e300, 1e17, std::numeric_limits<double>::max()}) {
        EXPECT_GE(balance(angle), 0.0) << angle;
        EXPECT_LE(balance(angle), kTwoPi) << angle;
    }
}

} // namespace
} // namespace apsis
