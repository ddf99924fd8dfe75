#pragma once

#include <cstdint>
#include <string>

#include "browser_channel/trace_log.h"

namespace orvane {

// Appends a timing step: "Timing " and `what`, with the duration in decimal milliseconds and " ms".
void appendTiming(TraceLog& trace, const std::string& what, std::uint64_t elapsedMs);

// The writer of the best-effort route: "Experimental " in front of the step, and behind the result
// the milliseconds since `startTick`, a value of GetTickCount64.
void appendElapsedTrace(TraceLog& trace, std::uint64_t startTick, const std::string& step, const std::string& result);

}  // namespace orvane
