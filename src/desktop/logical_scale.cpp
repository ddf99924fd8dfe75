#include "desktop/logical_scale.h"

#include <algorithm>
#include <cmath>

#include "embedding/reply_map.h"

namespace orvane {

double scaleAtDpi(UINT dpi) { return dpi == 0 ? 1.0 : static_cast<double>(dpi) / standardDpi; }

double logicalScale(HWND window) { return scaleAtDpi(::GetDpiForWindow(window)); }

int truncatedPixels(double pixels) {
  constexpr double greatest = 1'000'000'000.0;
  return std::isnan(pixels) ? 0 : static_cast<int>(std::clamp(pixels, -greatest, greatest));
}

void addLogicalBounds(EncodableMap& reply, const RECT& bounds, double scale) {
  addToReply(reply, "x", bounds.left / scale);
  addToReply(reply, "y", bounds.top / scale);
  addToReply(reply, "width", (static_cast<double>(bounds.right) - bounds.left) / scale);
  addToReply(reply, "height", (static_cast<double>(bounds.bottom) - bounds.top) / scale);
}

}  // namespace orvane
