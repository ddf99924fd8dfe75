#pragma once

#include <string>

#include "scenario/json.h"
#include "scenario/scenario.h"

namespace orvane::simulation {

// A run as a person reads it: each call with its trace and verdict, the keys sent, and where it
// ended. What the user wrote isn't in it. `colored`: with the colour codes of a terminal.
std::string describeForPerson(const Scenario& scenario, const Json& report, bool colored);

}  // namespace orvane::simulation
