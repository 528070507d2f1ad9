#pragma once

#include "control/controller.h"

#include <functional>
#include <string>
#include <vector>

namespace apsis {

// One picture of the game: a file name and how to bring a fresh controller to it.
struct Scene {
    std::string name;                      // the PNG's base name
    std::function<void(Controller&)> play; // keys, ticks and member writes up to the moment
};

// Every screen a player meets, in the order of a game: intro, menus, set-up, briefings, flights in
// several levels and zooms, each overlay, the end of a level, the fades and the crash.
std::vector<Scene> scenes();

} // namespace apsis
