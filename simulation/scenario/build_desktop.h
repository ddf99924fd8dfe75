#pragma once

#include "scenario/scenario.h"

namespace orvane::simulation {

// Puts what the plan says onto an empty desktop; the foreground is left to the first step.
void buildDesktop(Desktop& desktop, const DesktopPlan& plan);

}  // namespace orvane::simulation
