#pragma once

#include <windows.h>

#include <algorithm>

namespace orvane {

// A value between two bounds; the upper one wins where they cross.
template <typename Number>
Number clampedUpperFirst(Number wanted, Number least, Number most) {
  return most < wanted ? most : std::max(wanted, least);
}

// Moves a window to a rectangle, in pixels, by one SetWindowPos with these flags and no window to
// stand behind. False when that fails.
bool placeAt(HWND window, const RECT& rect, UINT flags);

struct LogicalSize {
  int width = 0;
  int height = 0;
};

// Sets the least tracking size: a number of logical pixels at the window's dpi, by GetDpiForWindow.
void limitTracking(HWND window, const LogicalSize& least, MINMAXINFO& limits);

}  // namespace orvane
