#pragma once

#include <string>

namespace orvane::standins {

// How many handles a process has open, as the system's own table counts them. -1 when the table
// can't be read or the text is no process id.
long countHandles(const std::string& processId);

}  // namespace orvane::standins
