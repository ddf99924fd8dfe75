#pragma once

#include <windows.h>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// Calls the procedure of a window of the host and returns its result; 0 when the window has gone.
LRESULT sendMessage(PlatformState& state, const Window& window, UINT message, WPARAM wParam, LPARAM lParam);

// The same for a message whose result nobody looks at: at once on the window's own thread, from
// another one in that thread's next turn.
void deliver(PlatformState& state, const Window& window, UINT message, WPARAM wParam, LPARAM lParam);

// Puts a message at the end of the host's queue.
void postMessage(PlatformState& state, const Window& window, UINT message, WPARAM wParam, LPARAM lParam);

// What the platform does with a message that the window leaves to it.
LRESULT defaultProcedure(PlatformState& state, Window& window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace orvane::simulation
