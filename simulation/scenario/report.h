#pragma once

#include <string>

#include "scenario/json.h"
#include "scenario/scenario.h"
#include "scenario/scripted_interface.h"
#include "windows/platform.h"

namespace orvane::simulation {

// The desktop as it stands, as the report has it.
Json describeDesktop(const Desktop& desktop);

// The report of a run that has ended. `errorText` is all that the host wrote to its error stream.
Json describeRun(const Scenario& scenario, int exitCode, const ScriptedInterface& script, Platform& platform,
                 const std::string& errorText);

}  // namespace orvane::simulation
