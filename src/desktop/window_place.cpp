#include "desktop/window_place.h"

#include "desktop/logical_scale.h"

namespace orvane {

bool placeAt(HWND window, const RECT& rect, UINT flags) {
  return ::SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, flags) !=
         FALSE;
}

void limitTracking(HWND window, const LogicalSize& least, MINMAXINFO& limits) {
  const auto dpi = static_cast<int>(::GetDpiForWindow(window));
  limits.ptMinTrackSize.x = ::MulDiv(least.width, dpi, standardDpi);
  limits.ptMinTrackSize.y = ::MulDiv(least.height, dpi, standardDpi);
}

}  // namespace orvane
