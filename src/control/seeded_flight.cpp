#include "control/seeded_flight.h"

#include "control/keys.h"
#include "physics/numeric.h"

namespace apsis {

void flySeeded(Controller& c, int n, unsigned seed) {
    seedRandomAngles(seed);
    c.startLevel(n);
    // The briefing gives way to the still scene, then the world starts.
    for (int i = 0; i < 2; ++i) {
        c.keyDown(kKeySpace);
        c.keyUp(kKeySpace);
    }
}

} // namespace apsis
