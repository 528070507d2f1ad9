#include "physics/numeric.h"

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace apsis {

bool randSeedSet = false;

double balance(double angle) {
    if (!std::isfinite(angle))
        return 0.0;
    // Far beyond any turn the game makes (a million turns), stepping would take too long or, past
    // 2^53 * 2*pi, never end; a remainder brings the angle near first.
    constexpr double kFarOut = 1e6 * kTwoPi;
    if (std::fabs(angle) > kFarOut)
        angle = std::fmod(angle, kTwoPi);
    if (angle > kTwoPi) {
        while (angle > kTwoPi)
            angle -= kTwoPi;
    } else if (angle < 0.0) {
        while (angle < 0.0)
            angle += kTwoPi;
    }
    return angle;
}

double randomAngle() {
    if (!randSeedSet) {
        std::srand(static_cast<unsigned>(std::time(nullptr)));
        randSeedSet = true;
    }
    return kTwoPi * (std::rand() / 2147483647.0);
}

} // namespace apsis
