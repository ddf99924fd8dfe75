#pragma once

#include <windows.h>

namespace orvane {

// The work area of a monitor by GetMonitorInfoW. False when it can't be read.
bool readWorkArea(HMONITOR monitor, RECT* work);

// Keeps a requested rectangle (pixels) on the work area of the monitor nearest to it: whole when
// `keepInside`, else with at least 48 pixels and never over its top. Gives it at least 160 pixels of
// width and `leastHeight` of height, unless the work area is smaller. Unchanged when the monitor can't
// be read.
RECT fitRectToMonitor(const RECT& rect, int leastHeight, bool keepInside);

}  // namespace orvane
