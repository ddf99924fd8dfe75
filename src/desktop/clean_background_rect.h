#pragma once

#include <windows.h>

namespace orvane {

inline constexpr DWORD cleanBackgroundStyle = WS_OVERLAPPEDWINDOW;
inline constexpr DWORD cleanBackgroundExStyle = WS_EX_APPWINDOW;

enum class PanelHeight {
  present,  // that of a panel that stands open, else as asked for
  asked,
};

// Where the panel belongs below `owner`, in pixels on the screen; a fixed rectangle when the monitor
// or the owner's place can't be read.
RECT computeCleanBackgroundRect(HWND owner, PanelHeight panelHeight);

}  // namespace orvane
