#include "browser/quiet_restore.h"

#include <utility>

namespace orvane::standins {
namespace {

struct Restoring {
  HWND quietly = nullptr;  // by us
  HWND refused = nullptr;  // by somebody else; its change of place is still to come
};

Restoring& restoring() {
  static Restoring state;
  return state;
}

}  // namespace

void restoreQuietly(HWND icon) {
  restoring().quietly = icon;
  // A disabled window isn't activated.
  ::EnableWindow(icon, FALSE);
  ::ShowWindow(icon, SW_SHOWNOACTIVATE);
  ::EnableWindow(icon, TRUE);
  restoring().quietly = nullptr;
  if (::GetActiveWindow() == icon) ::SetFocus(icon);
}

bool mayOpen(HWND icon) {
  if (restoring().quietly == icon) return true;
  restoring().refused = icon;
  ::PostMessageW(icon, restoreMessage(), 0, 0);
  return false;
}

UINT restoreMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"Orvane.StandIn.Restore");
  return message;
}

void calmRestore(WINDOWPOS& change) {
  const bool isRefused = restoring().refused == change.hwnd && std::exchange(restoring().refused, nullptr) != nullptr;
  if (isRefused || restoring().quietly == change.hwnd) change.flags |= SWP_NOACTIVATE | SWP_NOZORDER;
}

}  // namespace orvane::standins
