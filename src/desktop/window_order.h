#pragma once

#include <windows.h>

namespace orvane {

// Shows `window` behind the lowest of the program's own windows that count: visible, not iconic, not
// topmost, no panel. Without `force` it does nothing, and says true, unless one of the program's other
// windows has the foreground. False when SetWindowPos fails.
bool placeBehindOwnWindows(HWND window, bool force);

}  // namespace orvane
