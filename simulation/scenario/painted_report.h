#pragma once

#include <vector>

#include "scenario/json.h"
#include "windows/painted.h"

namespace orvane::simulation {

// What the host painted, in order.
Json describePainted(const std::vector<Painted>& painted);

}  // namespace orvane::simulation
