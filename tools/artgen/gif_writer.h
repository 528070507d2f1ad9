#pragma once

#include "raster.h"

#include <string>

namespace apsis::artgen {

// Writes the raster as a GIF of at most 255 colours plus one transparent entry. A pixel at least
// half opaque keeps its colour as seen over black (the game draws the craft over black space);
// the rest become transparent. Returns false when the file cannot be written.
bool writeGif(const Raster& raster, const std::string& path);

} // namespace apsis::artgen
