#pragma once

#include <windows.h>

#include "embedding/encodable_value.h"

namespace orvane {

inline constexpr int standardDpi = 96;

// Pixels for each logical pixel: the dpi / 96, or 1.0 when that is 0.
double scaleAtDpi(UINT dpi);

// The same for a window, by GetDpiForWindow.
double logicalScale(HWND window);

// A number of pixels cut to a whole one towards zero, held within a thousand million either way, so
// that sums of two still fit; not a number is 0.
int truncatedPixels(double pixels);

// Adds `x`, `y`, `width` and `height` of a rectangle in pixels to a reply, in logical pixels.
void addLogicalBounds(EncodableMap& reply, const RECT& bounds, double scale);

}  // namespace orvane
