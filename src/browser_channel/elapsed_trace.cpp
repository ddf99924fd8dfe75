#include "browser_channel/elapsed_trace.h"

#include <windows.h>

namespace orvane {

void appendTiming(TraceLog& trace, const std::string& what, std::uint64_t elapsedMs) {
  appendTrace(trace, "Timing " + what, std::to_string(elapsedMs) + " ms");
}

void appendElapsedTrace(TraceLog& trace, std::uint64_t startTick, const std::string& step, const std::string& result) {
  const std::uint64_t elapsedMs = ::GetTickCount64() - startTick;
  appendTrace(trace, "Experimental " + step, result + "; elapsed=" + std::to_string(elapsedMs) + " ms");
}

}  // namespace orvane
