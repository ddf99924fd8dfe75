#include "desktop/monitor_fit.h"

#include <algorithm>
#include <cstdint>

#include "desktop/window_place.h"

namespace orvane {
namespace {

// Pixels as they stand: not scaled at any dpi.
constexpr std::int64_t leastWidthPixels = 160;
constexpr std::int64_t keptOnScreenPixels = 48;

struct Range {
  std::int64_t least = 0;
  std::int64_t most = 0;
};

LONG pixels(std::int64_t number) { return static_cast<LONG>(number); }

}  // namespace

bool readWorkArea(HMONITOR monitor, RECT* work) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (::GetMonitorInfoW(monitor, &info) == FALSE) {
    return false;
  }
  *work = info.rcWork;
  return true;
}

RECT fitRectToMonitor(const RECT& rect, int leastHeight, ScreenFit fit) {
  RECT work{};
  if (!readWorkArea(::MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &work)) {
    return rect;
  }
  const std::int64_t left = work.left;
  const std::int64_t top = work.top;
  const std::int64_t right = work.right;
  const std::int64_t bottom = work.bottom;
  const std::int64_t wantedWidth = static_cast<std::int64_t>(rect.right) - rect.left;
  const std::int64_t wantedHeight = static_cast<std::int64_t>(rect.bottom) - rect.top;
  const std::int64_t width = std::min(std::max(wantedWidth, leastWidthPixels), right - left);
  const std::int64_t height = std::min(std::max<std::int64_t>(leastHeight, wantedHeight), bottom - top);
  const Range across = fit == ScreenFit::inside ? Range{left, right - width}
                                                : Range{left - width + keptOnScreenPixels, right - keptOnScreenPixels};
  const Range down = fit == ScreenFit::inside ? Range{top, bottom - height} : Range{top, bottom - keptOnScreenPixels};
  const std::int64_t fittedLeft = clampedUpperFirst<std::int64_t>(rect.left, across.least, across.most);
  const std::int64_t fittedTop = clampedUpperFirst<std::int64_t>(rect.top, down.least, down.most);
  return {pixels(fittedLeft), pixels(fittedTop), pixels(fittedLeft + width), pixels(fittedTop + height)};
}

}  // namespace orvane
