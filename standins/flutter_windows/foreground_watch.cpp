#include "flutter_windows/foreground_watch.h"

#include <utility>

#include "common/link.h"
#include "flutter_windows/host_person.h"

namespace orvane::standins {

bool ForegroundWatch::look(HWND mainWindow) {
  if (giveUpMinimized(mainWindow)) return true;
  const HWND foreground = ::GetForegroundWindow();
  if (foreground == nullptr || foreground != ::GetDesktopWindow()) {
    last_ = foreground != nullptr && nameOfWindow(foreground) ? foreground : nullptr;
    return false;
  }
  return last_ != nullptr && isSeen(last_) && ::SetForegroundWindow(last_) != FALSE;
}

bool ForegroundWatch::giveUpMinimized(HWND mainWindow) {
  const bool wasMinimized = std::exchange(isMinimized_, mainWindow != nullptr && ::IsIconic(mainWindow) != FALSE);
  if (wasMinimized || !isMinimized_ || ::GetForegroundWindow() != mainWindow) return false;
  bringUpWindowBelow(mainWindow);
  last_ = ::GetForegroundWindow();
  return true;
}

}  // namespace orvane::standins
