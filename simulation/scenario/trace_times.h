#pragma once

#include <cstdint>
#include <vector>

#include "world/clock.h"

// When the host wrote the steps of its trace: the trace itself has no times. The linker puts a
// function of ours in front of the host's `appendTrace` (--wrap with its linkage name), which notes
// the virtual time of each step.
namespace orvane::simulation {

// Forgets what was noted; from now on times are those of `clock`, which must live on.
void startTraceTimes(const Clock& clock);

// The times noted since, in milliseconds.
const std::vector<std::int64_t>& traceTimes();

}  // namespace orvane::simulation
