#include "physics/numeric.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace apsis {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(E, ScalesByRepeatedTensAndKeepsItsLastBit) {
    struct Case {
        double mantissa;
        int exponent;
        double expected;
    };
    // Several constants of the world come out one bit off their decimal literal; a power function
    // or a literal would give the literal.
    const Case cases[] = {
        {1.0, 0, 1.0},
        {25.0, 6, 25000000.0},
        {6.67, -11, 6.670000000000001e-11},
        {4.83, 24, 4.830000000000001e+24},
        {2.36, 6, 2359999.9999999995},
        {6.37, 23, 6.369999999999999e+23},
        {6.86, 6, 6860000.000000001},
        {1.9, 27, 1.9000000000000004e+27},
        {2.28, 11, 227999999999.99997},
        {-2.1, 7, -21000000.0},
        {0.0, 1000000000, 0.0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(E(c.mantissa, c.exponent), c.expected) << c.mantissa << "e" << c.exponent;
    EXPECT_EQ(G, 6.670000000000001e-11);
}

TEST(E, AWildExponentEndsAtOnce) {
    EXPECT_EQ(E(1.0, std::numeric_limits<int>::max()), kInf);
    EXPECT_EQ(E(-1.0, std::numeric_limits<int>::max()), -kInf);
    EXPECT_EQ(E(1.0, std::numeric_limits<int>::min()), 0.0);
}

TEST(Balance, KeepsBothEndsOfTheTurn) {
    struct Case {
        double angle;
        double expected;
    };
    const Case cases[] = {
        {kTwoPi, kTwoPi},     {0.0, 0.0},
        {-0.5, kTwoPi - 0.5}, {7.0, 7.0 - kTwoPi},
        {-kTwoPi, 0.0},       {2 * kTwoPi, kTwoPi},
        {3.0, 3.0},           {kTwoPi + 1e-15, kTwoPi + 1e-15 - kTwoPi},
    };
    for (const Case& c : cases)
        EXPECT_EQ(balance(c.angle), c.expected) << c.angle;
    // An exact zero reached by adding a turn is a positive zero.
    EXPECT_FALSE(std::signbit(balance(-kTwoPi)));
}

// The plain loop, one rounded step of 2*pi at a time.
double balanceStepByStep(double angle) {
    if (angle > kTwoPi) {
        while (angle > kTwoPi)
            angle -= kTwoPi;
    } else if (angle < 0.0) {
        while (angle < 0.0)
            angle += kTwoPi;
    }
    return angle;
}

TEST(Balance, FarOutAnglesRoundAsTheStepByStepLoop) {
    std::mt19937_64 generator(20240611);
    std::uniform_real_distribution<double> magnitude(0.0, 7.0); // log10 of the angle
    for (int i = 0; i < 60; ++i) {
        const double angle = std::pow(10.0, magnitude(generator)) * (i % 2 == 0 ? 1.0 : -1.0);
        EXPECT_EQ(balance(angle), balanceStepByStep(angle)) << std::hexfloat << angle;
    }
    // Around the edges of binades, where the unit of the last place changes.
    for (const double edge : {4096.0, 8192.0, 65536.0, 1048576.0, 4194304.0}) {
        for (const double offset : {-2 * kTwoPi, -kTwoPi, -1e-9, 0.0, 1e-9, kTwoPi, 3 * kTwoPi}) {
            EXPECT_EQ(balance(edge + offset), balanceStepByStep(edge + offset))
                << std::hexfloat << edge + offset;
            EXPECT_EQ(balance(-edge - offset), balanceStepByStep(-edge - offset))
                << std::hexfloat << -edge - offset;
        }
    }
}

TEST(Balance, AnglesWithoutAnEndComeBackInRangeAtOnce) {
    const double cases[] = {kInf,
                            -kInf,
                            std::numeric_limits<double>::quiet_NaN(),
                            1e300,
                            -1e300,
                            std::ldexp(1.0, 56) + 1e3,
                            1e17,
                            std::numeric_limits<double>::max()};
    for (const double angle : cases) {
        const double result = balance(angle);
        EXPECT_GE(result, 0.0) << angle;
        EXPECT_LE(result, kTwoPi) << angle;
    }
    EXPECT_EQ(balance(kInf), 0.0);
    EXPECT_EQ(balance(std::numeric_limits<double>::quiet_NaN()), 0.0);
}

TEST(RandomAngle, StaysInOneTurnAndFollowsTheSeed) {
    randSeedSet = true;
    std::srand(7);
    double first[100];
    for (double& angle : first) {
        angle = randomAngle();
        EXPECT_GE(angle, 0.0);
        EXPECT_LE(angle, kTwoPi);
    }
    std::srand(7);
    for (const double angle : first)
        EXPECT_EQ(randomAngle(), angle);
    EXPECT_TRUE(randSeedSet);
}

} // namespace
} // namespace apsis
