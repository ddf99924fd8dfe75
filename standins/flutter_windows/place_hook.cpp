#include "flutter_windows/place_hook.h"

#include <windows.h>

#include <utility>

namespace orvane::standins {
namespace {

struct PlaceHook {
  HHOOK handle = nullptr;
  std::function<void()> act;
};

PlaceHook& placeHook() {
  static auto& hook = *new PlaceHook;
  return hook;
}

bool hasMoved(const CWPRETSTRUCT& sent) {
  if (sent.message != WM_WINDOWPOSCHANGED || sent.lParam == 0) return false;
  const auto& place = *reinterpret_cast<const WINDOWPOS*>(sent.lParam);
  const bool isTopLevel = (::GetWindowLongPtrW(sent.hwnd, GWL_STYLE) & WS_CHILD) == 0;
  return isTopLevel && ((place.flags & SWP_NOZORDER) == 0 || (place.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0);
}

LRESULT CALLBACK watch(int code, WPARAM wparam, LPARAM lparam) {
  if (code == HC_ACTION && hasMoved(*reinterpret_cast<const CWPRETSTRUCT*>(lparam))) placeHook().act();
  return ::CallNextHookEx(nullptr, code, wparam, lparam);
}

}  // namespace

void installPlaceHook(std::function<void()> act) {
  removePlaceHook();
  placeHook().act = std::move(act);
  placeHook().handle = ::SetWindowsHookExW(WH_CALLWNDPROCRET, watch, nullptr, ::GetCurrentThreadId());
}

void removePlaceHook() {
  if (const HHOOK handle = std::exchange(placeHook().handle, nullptr)) ::UnhookWindowsHookEx(handle);
}

}  // namespace orvane::standins
