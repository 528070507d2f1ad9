#pragma once

#include "control/controller.h"

namespace apsis {

// Sets up level n with the layout that seed fixes, dismisses its briefing and starts the world:
// the same flight at every run, for the snapshots, the benchmarks and the tests.
void flySeeded(Controller& c, int n, unsigned seed);

} // namespace apsis
