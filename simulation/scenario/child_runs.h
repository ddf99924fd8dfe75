#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "scenario/json.h"

namespace orvane::simulation {

// What came of one run in a process of its own.
struct ChildRun {
  bool hasEnded = false;  // by itself, with its report
  Json report;
  std::string failure;  // how it ended otherwise, with what it wrote to its error stream
};

// Makes a report; is called in the child. `readErrorText`: what the child has written so far.
using ReportMaker = std::function<Json(std::size_t index, const std::function<std::string()>& readErrorText)>;

// Does `count` runs, each in a fresh child of this process, at most `jobs` at a time. `take` gets
// each result in order, as soon as it and those before it are there.
void doChildRuns(std::size_t count, std::size_t jobs, const ReportMaker& make,
                 const std::function<void(std::size_t index, ChildRun run)>& take);

}  // namespace orvane::simulation
