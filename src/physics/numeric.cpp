#include "physics/numeric.h"

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace apsis {

bool randSeedSet = false;

namespace {

// Below this an angle is reduced one turn at a time: a few hundred steps at most.
constexpr double kStepByStepBelow = 4096.0;

// Subtracts 2*pi from value, each subtraction rounded on its own, for as long as value is above
// limit: the result is bit for bit that of the plain loop. Far out, whole runs of subtractions are
// done at once. Inside one binade [low, 2*low) every value is a multiple of the same unit, coarser
// than 2*pi's own, so each rounded subtraction takes off the same multiple of that unit (after the
// first, which may round a tie the other way); that many steps are one exact multiplication.
// Returns NaN when the plain loop would never end: so far out that a subtraction changes nothing.
double subtractTurnsAbove(double value, double limit) {
    while (value > limit) {
        if (value < kStepByStepBelow) {
            value -= kTwoPi;
            continue;
        }
        const double low = std::ldexp(1.0, std::ilogb(value));
        const double first = value - kTwoPi;
        const double second = first - kTwoPi;
        const double decrement = first - second; // exact: both lie in one binade
        if (decrement == 0.0)
            return std::nan("");
        // Stay a few steps clear of the binade's floor, where the unit halves.
        const double steps = std::floor((second - low) / decrement) - 4.0;
        value = steps >= 1.0 ? second - steps * decrement : second;
    }
    return value;
}

} // namespace

double balanceOutsideTheTurn(double angle) {
    if (!std::isfinite(angle))
        return 0.0;
    double result = angle;
    if (angle > kTwoPi)
        result = subtractTurnsAbove(angle, kTwoPi);
    else if (angle < 0.0)
        // Adding 2*pi to a negative angle rounds as subtracting it from the angle's negation;
        // 0.0 - keeps an exact 0 positive, as the additions would leave it.
        result = 0.0 - subtractTurnsAbove(-angle, 0.0);
    if (std::isnan(result)) {
        // Beyond 2^56 rad the repeated steps stand still; only a remainder can bring such an angle
        // back.
        result = std::fmod(angle, kTwoPi);
        if (result < 0.0)
            result += kTwoPi;
    }
    return result;
}

void seedRandomAngles(unsigned seed) {
    std::srand(seed);
    randSeedSet = true;
}

double randomAngle() {
    if (!randSeedSet) {
        std::srand(static_cast<unsigned>(std::time(nullptr)));
        randSeedSet = true;
    }
    return kTwoPi * (std::rand() / 2147483647.0);
}

} // namespace apsis
