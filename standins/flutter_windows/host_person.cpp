#include "flutter_windows/host_person.h"

#include "common/link.h"

namespace orvane::standins {

bool isSeen(HWND window) { return ::IsWindowVisible(window) != FALSE && ::IsIconic(window) == FALSE; }

void bringUp(HWND window) {
  if (::IsIconic(window) != FALSE) ::ShowWindow(window, SW_RESTORE);
  // The foreground alone doesn't raise the window everywhere.
  ::BringWindowToTop(window);
  ::SetForegroundWindow(window);
}

void leaveAllWindows() {
  // This thread takes the foreground with a window of its own, and then has no active window.
  if (::GetForegroundWindow() == nullptr) return;
  const HWND nobody = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                        ::GetModuleHandleW(nullptr), nullptr);
  ::SetForegroundWindow(nobody);
  ::SetActiveWindow(nullptr);
  ::DestroyWindow(nobody);
}

void bringUpWindowBelow(HWND minimized) {
  for (HWND below = ::GetWindow(minimized, GW_HWNDNEXT); below != nullptr; below = ::GetWindow(below, GW_HWNDNEXT)) {
    if (!isSeen(below) || !nameOfWindow(below)) continue;
    ::SetForegroundWindow(below);
    return;
  }
  leaveAllWindows();
}

void closeWindow(HWND window) { ::PostMessageW(window, WM_CLOSE, 0, 0); }

void minimizeWindow(HWND window) { ::PostMessageW(window, WM_SYSCOMMAND, SC_MINIMIZE, 0); }

void resizeWindow(HWND window, const simulation::Rectangle& bounds) {
  if (!isSeen(window)) return;
  ::SendMessageW(window, WM_ENTERSIZEMOVE, 0, 0);
  RECT dragged{bounds.left, bounds.top, bounds.right, bounds.bottom};
  ::SendMessageW(window, WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&dragged));
  ::SetWindowPos(window, nullptr, dragged.left, dragged.top, dragged.right - dragged.left, dragged.bottom - dragged.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  ::SendMessageW(window, WM_EXITSIZEMOVE, 0, 0);
}

}  // namespace orvane::standins
