#pragma once

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// `bounds` with a size that the window lets itself be given, as it says on WM_GETMINMAXINFO; left
// and top stay. Unchanged for a window that the platform keeps no limits for.
Rectangle limitedBounds(PlatformState& state, const Window& window, const Rectangle& bounds);

}  // namespace orvane::simulation
