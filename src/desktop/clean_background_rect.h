#pragma once

#include <windows.h>

namespace orvane {

inline constexpr DWORD cleanBackgroundStyle = WS_OVERLAPPEDWINDOW;
inline constexpr DWORD cleanBackgroundExStyle = WS_EX_APPWINDOW;

// Where the panel belongs below `owner`, in pixels on the screen; a fixed rectangle when the monitor
// or the owner's place can't be read. The panel's present height counts unless `ignoreCurrentHeight`.
RECT computeCleanBackgroundRect(HWND owner, bool ignoreCurrentHeight);

}  // namespace orvane
