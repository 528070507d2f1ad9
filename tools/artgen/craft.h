#pragma once

#include "raster.h"

namespace apsis::artgen {

// The craft, drawn into square pictures of size pixels on a transparent background. The ship
// points up, its nose the farthest point from the picture's centre.
Raster drawShip(int size);
Raster drawSatellite(int size);
Raster drawStation(int size);

} // namespace apsis::artgen
