#pragma once

#include <string>

#include "scenario/json.h"

namespace orvane::simulation {

// The keys of a report's `input`, one word for each that went down, with those held: "Ctrl+V Enter".
// Empty when none was sent.
std::string describeKeys(const Json& input);

}  // namespace orvane::simulation
