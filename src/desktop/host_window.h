#pragma once

#include <windows.h>

#include <functional>

namespace orvane {

// What the window channel has to know and change of the window that owns it.
struct HostWindow {
  std::function<HWND()> readHandle;          // null before the window exists and after its end
  std::function<void(bool)> setCompactMode;  // the narrow form without a caption
};

}  // namespace orvane
