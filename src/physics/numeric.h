#pragma once

namespace apsis {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kHalfPi = 1.5707963267948966;

// mantissa * 10^exponent, by repeated multiplication or division by 10.0, each step rounded on its
// own. Every physical constant of the game is written this way, and its last bit depends on it:
// E(6.67, -11) is 6.670000000000001e-11, one unit in the last place above the literal. Once the
// value is 0, infinite or NaN, further steps would not change it, so a wild exponent ends early.
constexpr double E(double mantissa, int exponent) {
    double value = mantissa;
    const auto settled = [](double v) { return v == 0.0 || !(v - v == 0.0); };
    for (int i = 0; i < exponent && !settled(value); ++i)
        value *= 10.0;
    for (int i = 0; i > exponent && !settled(value); --i)
        value /= 10.0;
    return value;
}

// The gravitational constant, m^3 kg^-1 s^-2. Evaluated at compile time: plain multiplication and
// division round the same way there as at run time.
inline constexpr double G = E(6.67, -11);

// The angle brought into [0, 2*pi] by repeated subtraction or addition of 2*pi, each step rounded
// on its own, so both ends of the interval are kept as they are and 4*pi comes back as 2*pi. The
// result is that of the step-by-step loop for every finite angle, however far out, without taking
// its time. Two kinds of input on which that loop would never end are answered at once instead:
// an angle that is not finite comes back as 0, and one beyond 2^56 rad (where a step of 2*pi is
// lost in rounding) is reduced by a floating-point remainder. Every drift of every body calls it,
// and nearly always the angle is in the turn already: that test is inline, the reduction is not.
double balanceOutsideTheTurn(double angle);
inline double balance(double angle) {
    if (angle >= 0.0 && angle <= kTwoPi)
        return angle;
    return balanceOutsideTheTurn(angle);
}

// Set once the C library's generator has been seeded, from the clock unless seedRandomAngles
// came first.
extern bool randSeedSet;

// Fixes the random angles to come, and with them the layouts of the levels: the same seed gives
// the same flight at every run.
void seedRandomAngles(unsigned seed);

// A random angle in [0, 2*pi], both ends included.
double randomAngle();

} // namespace apsis
