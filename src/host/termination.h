#pragma once

namespace apsis {

// SIGTERM (a desktop session ending, a service manager, kill) and SIGINT (Ctrl+C in a terminal)
// end the game as its own Quit does: the event loop returns and the window is closed and
// destroyed, instead of the process vanishing mid-frame. Call once the application exists.
void quitOnTermination();

} // namespace apsis
