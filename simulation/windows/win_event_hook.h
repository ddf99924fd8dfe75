#pragma once

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// Tells the hooks, in the message loop's turn, that a window came to the front. Those of the host's
// own process are left out, as the hooks ask.
void announceToHooks(PlatformState& state, const Window* window);

}  // namespace orvane::simulation
