#pragma once

#include <string>

#include "scenario/json.h"

namespace orvane::simulation {

// A run as one HTML page that asks nothing of anywhere. `data` is an object of `file`, `scenario` (as
// written in the file), `report`, `record` (see scenario/run_record.h; null where nobody kept one) and
// `unmet` (a list of texts: what was expected and didn't come).
std::string writePage(const Json& data);

}  // namespace orvane::simulation
