#pragma once

#include <windows.h>

namespace orvane {

// Owner drawing of the native menu's entries in `window`, which opened it. Both say false, and touch
// nothing, when the message isn't about a live entry of such a menu.
bool measureMenuItem(HWND window, MEASUREITEMSTRUCT* item);
bool drawMenuItem(HWND window, const DRAWITEMSTRUCT* item);

}  // namespace orvane
