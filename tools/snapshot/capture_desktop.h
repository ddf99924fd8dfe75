#pragma once

#include <string>
#include <vector>

#include "snapshot/captured_desktop.h"

namespace orvane::snapshot {

struct CaptureResult {
  CapturedDesktop desktop;
  bool hasAutomation = true;  // false: UI Automation is unavailable, and nothing was read
};

// Reads all top-level windows of processes with these image names (lower case). Only reads: no
// window is raised, nothing is selected, focused or pressed. Takes as long as the browsers need to
// answer, which for large pages is seconds.
CaptureResult captureDesktop(const std::vector<std::wstring>& imageNames);

}  // namespace orvane::snapshot
