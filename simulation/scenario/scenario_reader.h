#pragma once

#include <string>

#include "scenario/node.h"
#include "scenario/scenario.h"

namespace orvane::simulation {

// Reads and checks a scenario. Throws ScenarioError: one line that names the place in the JSON.
Scenario readScenario(const std::string& json);
Scenario readScenarioFile(const std::string& file);

}  // namespace orvane::simulation
