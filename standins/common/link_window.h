#pragma once

#include <windows.h>

#include <vector>

namespace orvane::standins {

// The class of the one window that a process of the scenario has from its start to its end. It takes
// messages alone, so that it isn't among the windows of the desktop.
inline constexpr const wchar_t* linkWindowClass = L"Orvane.StandIn.Link";

// Those of a process; none: it is no process of the scenario, or has ended.
inline std::vector<HWND> linkWindowsOf(DWORD process) {
  std::vector<HWND> found;
  HWND window = nullptr;
  while ((window = ::FindWindowExW(HWND_MESSAGE, window, linkWindowClass, nullptr)) != nullptr) {
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner == process) found.push_back(window);
  }
  return found;
}

}  // namespace orvane::standins
