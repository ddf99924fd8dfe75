#pragma once

#include <string>

#include "snapshot/command_line.h"

namespace orvane::snapshot {

// What the tool printed, and its exit status.
struct Outcome {
  int exitStatus = 0;
  std::string told;       // for standard output
  std::string complaint;  // one line for the error stream; empty when all went well
};

// Serves one request: waits, reads the windows, writes the file.
Outcome takeSnapshot(const Request& request);

}  // namespace orvane::snapshot
