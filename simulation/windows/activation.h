#pragma once

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// Tells the host's windows that the foreground went from one window to another; either may be null
// or another program's.
void announceForeground(PlatformState& state, Window* from, Window* to);

// Makes a window of the host the active one of its queue, without a word about the foreground.
void activateInQueue(PlatformState& state, Window& window);

// Moves the keyboard focus within the host's queue; null takes it away.
void moveKeyboardFocus(PlatformState& state, Window* window);

// A window that goes holds neither.
void forgetInQueue(PlatformState& state, const Window& window);

}  // namespace orvane::simulation
