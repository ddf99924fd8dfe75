#include "windows/tracking_sizes.h"

#include <windows.h>

#include <algorithm>

#include "windows/messages.h"
#include "windows/standard_dpi.h"
#include "windows/state.h"
#include "windows/window_geometry.h"

namespace orvane::simulation {
namespace {

constexpr int leastWidth = 136;
constexpr int leastHeight = 39;
constexpr LONG mostPixels = 32767;

bool hasLimits(const Window& window) {
  if (!window.ofHost) return false;
  return (window.style & WS_THICKFRAME) != 0 || (window.style & (WS_POPUP | WS_CHILD)) == 0;
}

// The least size wins over the greatest.
int limited(int size, LONG least, LONG most) { return std::max<int>(std::min<int>(size, most), least); }

}  // namespace

Rectangle limitedBounds(PlatformState& state, const Window& window, const Rectangle& bounds) {
  if (!hasLimits(window)) return bounds;
  const Monitor& monitor = monitorNear(state.desktop, window.bounds);
  const auto dpi = static_cast<int>(dpiOf(state, window));
  MINMAXINFO limits{};
  limits.ptMaxSize = {monitor.bounds.width(), monitor.bounds.height()};
  limits.ptMinTrackSize = {scaledBy(leastWidth, dpi, standardDpi), scaledBy(leastHeight, dpi, standardDpi)};
  limits.ptMaxTrackSize = {mostPixels, mostPixels};
  sendMessage(state, window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  const int width = limited(bounds.width(), limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x);
  const int height = limited(bounds.height(), limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y);
  return {bounds.left, bounds.top, bounds.left + width, bounds.top + height};
}

}  // namespace orvane::simulation
