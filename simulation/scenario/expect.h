#pragma once

#include <string>
#include <vector>

#include "scenario/json.h"
#include "scenario/node.h"

namespace orvane::simulation {

// An expectation is a subset: of an object the keys given, of a list all of it, item by item; a text
// that begins with "~" is a regular expression that must be found. A count that isn't there is 0.

// Throws ScenarioError for a broken regular expression or what is no object.
void checkExpectation(const Node& node);

// One line for each place that doesn't hold: what was expected there and what came.
std::vector<std::string> compareWithExpectation(const Json& expected, const Json& report);

}  // namespace orvane::simulation
