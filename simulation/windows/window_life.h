#pragma once

#include <windows.h>

#include <string>

#include "world/desktop.h"

namespace orvane::simulation {

class PlatformState;

// A child window of the embedding library's own: hidden, without a parent that shows. It joins the
// window that takes it in by SetParent.
Window& makeLibraryWindow(PlatformState& state, int width, int height);

// Whether the window waits for a parent.
bool isUnparented(const Window& window);

// WM_DESTROY to the window and its children, WM_NCDESTROY to the children and the window; then they
// are gone. False for a window that is ending already.
bool endWindow(PlatformState& state, Window& window);

}  // namespace orvane::simulation
