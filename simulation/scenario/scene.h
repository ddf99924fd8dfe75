#pragma once

#include "scenario/json.h"
#include "world/desktop.h"

namespace orvane::simulation {

// What a drawing of the desktop needs, as it stands: `monitors`, `foreground`, `focus` ("window/element"
// or null), and `windows`, top of the z-order first, each with its place, tabs and the elements that
// UI Automation sees in it. Bounds are those of the report.
Json describeScene(const Desktop& desktop);

}  // namespace orvane::simulation
