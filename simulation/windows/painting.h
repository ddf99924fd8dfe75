#pragma once

#include <windows.h>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// All of a window's client area has to be drawn anew, its background erased first if `erases`. A
// window that doesn't show keeps nothing of it: its showing will ask for all again.
void invalidateWindow(PlatformState& state, const Window& window, bool erases = true);

// The window no longer shows: nothing of it has to be drawn.
void forgetUpdate(PlatformState& state, const Window& window);

// The client area changed its size. What it lost doesn't show, so that it is drawn anew only where
// it grew, or where its class asks for that.
void invalidateResized(PlatformState& state, const Window& window, const Rectangle& before, const Rectangle& after);

// What the platform does with WM_PAINT: erases the background, and all counts as drawn.
void validateWindow(PlatformState& state, const Window& window);

// The topmost window that has to be drawn is asked for it. False when there is none.
bool takePaintMessage(PlatformState& state, MSG& message);

}  // namespace orvane::simulation
