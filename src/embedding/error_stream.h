#pragma once

#include <string>

namespace orvane {

// Writes `line` and a line end to the process's standard error stream, in one piece and flushed. A
// stream that leads nowhere, as in a process without a console, is no failure.
void logErrorLine(const std::string& line);

}  // namespace orvane
