#include "physics/numeric.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace apsis {
namespace {

TEST(E, ScalesByRepeatedTensAndKeepsItsLastBit) {
    EXPECT_EQ(E(1.0, 0), 1.0);
    EXPECT_EQ(E(25.0, 6), 25000000.0);
    EXPECT_EQ(E(6.67, -11), 6.670000000000001e-11);
    EXPECT_EQ(G, 6.670000000000001e-11);
    EXPECT_EQ(E(120, 6), 1.2e8);
}

TEST(Balance, KeepsBothEndsAndNeverHangs) {
    EXPECT_EQ(balance(kTwoPi), kTwoPi);
    EXPECT_EQ(balance(0.0), 0.0);
    EXPECT_EQ(balance(-0.5), kTwoPi - 0.5);
    EXPECT_EQ(balance(7.0), 7.0 - kTwoPi);
    EXPECT_EQ(balance(-kTwoPi), 0.0);
    EXPECT_EQ(balance(2 * kTwoPi), kTwoPi);
    EXPECT_EQ(balance(std::numeric_limits<double>::infinity()), 0.0);
    EXPECT_EQ(balance(-std::numeric_limits<double>::infinity()), 0.0);
    EXPECT_EQ(balance(std::numeric_limits<double>::quiet_NaN()), 0.0);
    const double far = balance(1e300);
    EXPECT_GE(far, 0.0);
    EXPECT_LE(far, kTwoPi);
}

} // namespace
} // namespace apsis
