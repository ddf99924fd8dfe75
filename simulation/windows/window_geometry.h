#pragma once

#include <windows.h>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// number * numerator / denominator, rounded half away from zero.
int scaledBy(int number, int numerator, int denominator);

Window& topLevelOf(Window& window);
const Monitor& monitorNear(const Desktop& desktop, const Rectangle& bounds);
std::uint32_t dpiOf(PlatformState& state, const Window& window);
// Of the first monitor for a handle that is none.
std::uint32_t dpiOfMonitor(const Desktop& desktop, HMONITOR monitor);

// Screen coordinates; a child's place is kept relative to its parent's client area.
Rectangle screenBounds(PlatformState& state, const Window& window);
Rectangle clientOnScreen(PlatformState& state, const Window& window);

// Whether a window keeps its frame where its size stays the same; with another size it never does.
enum class Frame { kept, recomputed };

// Gives a window a new place: its parent's client coordinates for a child, else the screen's. A
// window of the host hears of what changed. Of an iconic one it is the place that it comes back to.
void changeBounds(PlatformState& state, Window& window, const Rectangle& bounds, Frame frame);

// WM_MOVE and WM_SIZE as the window stands.
void tellPlace(PlatformState& state, const Window& window);

// A person drags the lower right corner until the window lies there, as far as it lets itself.
void dragBorder(PlatformState& state, Window& window, const Rectangle& bounds);

}  // namespace orvane::simulation
