#pragma once

#include <functional>
#include <string>

#include "scenario/json.h"
#include "scenario/scenario.h"

namespace orvane::simulation {

// Runs the host in front of the scenario's desktop and gives the report. Once in a process: the
// desktop lives on until the process ends. `readErrorText` gives what the process has written to its
// error stream so far.
Json runScenario(const Scenario& scenario, const std::function<std::string()>& readErrorText);

// The same; gives {"report", "record"}, the latter as in run_record.h.
Json runScenarioRecorded(const Scenario& scenario, const std::function<std::string()>& readErrorText);

}  // namespace orvane::simulation
