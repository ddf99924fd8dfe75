#include "desktop/window_order.h"

#include "desktop/clean_background_state.h"
#include "desktop/own_program.h"

namespace orvane {
namespace {

bool isRestackDue(HWND window) {
  const HWND foreground = ::GetForegroundWindow();
  return foreground != window && ::IsIconic(window) == FALSE && isOwnProgramWindow(foreground);
}

bool isAnchor(HWND candidate, HWND window) {
  return candidate != window && ::IsWindowVisible(candidate) != FALSE && ::IsIconic(candidate) == FALSE &&
         ::GetPropW(candidate, cleanBackgroundProperty) == nullptr &&
         (::GetWindowLongPtrW(candidate, GWL_EXSTYLE) & WS_EX_TOPMOST) == 0 && isOwnProgramWindow(candidate);
}

// The lowest one in the z-order; null, which stands for HWND_TOP, when there is none.
HWND findAnchor(HWND window) {
  HWND lowest = nullptr;
  for (HWND candidate = ::GetTopWindow(nullptr); candidate != nullptr;
       candidate = ::GetWindow(candidate, GW_HWNDNEXT)) {
    if (isAnchor(candidate, window)) {
      lowest = candidate;
    }
  }
  return lowest;
}

}  // namespace

bool placeBehindOwnWindows(HWND window, Restack restack) {
  if (restack != Restack::always && !isRestackDue(window)) {
    return true;
  }
  return ::SetWindowPos(window, findAnchor(window), 0, 0, 0, 0,
                        SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW) != FALSE;
}

}  // namespace orvane
