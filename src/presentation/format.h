#pragma once

#include "physics/position.h"

#include <string>

namespace apsis {

// The texts of the display. Each picks its unit from the size of the value; grouping is always ","
// and the decimal point "."; numbers round to nearest with halves away from zero.

// A fraction as a percentage: 0.5 is " 50.0%".
std::string formatPercent(double fraction);
// An acceleration, m/s^2: "0.200m/s/s", or in mm/s/s at 0.01 and below.
std::string formatAccel(double acceleration);
// A distance, m: in AU, km, m, or with one decimal up to 100 m and below zero.
std::string formatDist(double distance);
// The speed of a relative to b: "7.50m/s", or in km/s above 1000 m/s.
std::string formatVelDiff(const Position& a, const Position& b);
// A running duration, s: every unit from the largest non-zero one down to seconds, "<01m 15s>".
std::string formatTime(double seconds);
// A limit, s: only the units that are not zero, "<06d 06h>".
std::string formatFixedTime(double seconds);

} // namespace apsis
