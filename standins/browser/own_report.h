#pragma once

#include <vector>

#include "browser/world.h"
#include "common/link.h"

namespace orvane::standins {

// {"input", "tabs", "values", "invoked", "focus"} of the process's own windows, in the report's forms.
Json describeOwnWindows(World& world);

}  // namespace orvane::standins
