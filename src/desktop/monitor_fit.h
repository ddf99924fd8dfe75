#pragma once

#include <windows.h>

namespace orvane {

// The work area of a monitor by GetMonitorInfoW. False when it can't be read.
bool readWorkArea(HMONITOR monitor, RECT* work);

enum class ScreenFit {
  inside,       // the whole rectangle
  overhanging,  // at least 48 pixels of it, and never over the top
};

// Keeps a requested rectangle (pixels) on the work area of the monitor nearest to it. Gives it at least
// 160 pixels of width and `leastHeight` of height, unless the work area is smaller. Unchanged when the
// monitor can't be read.
RECT fitRectToMonitor(const RECT& rect, int leastHeight, ScreenFit fit);

}  // namespace orvane
