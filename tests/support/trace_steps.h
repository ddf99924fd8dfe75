#pragma once

#include <string>
#include <variant>
#include <vector>

#include "browser_channel/trace_log.h"

namespace orvane {

inline std::string traceEntry(const EncodableValue& step, const char* key) {
  return std::get<std::string>(std::get<EncodableMap>(step).at(EncodableValue(key)));
}

// The results of all steps of this name, in order.
inline std::vector<std::string> resultsOf(const TraceLog& trace, const std::string& name) {
  std::vector<std::string> results;
  for (const EncodableValue& step : trace) {
    if (traceEntry(step, "step") == name) {
      results.push_back(traceEntry(step, "result"));
    }
  }
  return results;
}

// The names of all steps, in order.
inline std::vector<std::string> stepNames(const TraceLog& trace) {
  std::vector<std::string> names;
  for (const EncodableValue& step : trace) {
    names.push_back(traceEntry(step, "step"));
  }
  return names;
}

}  // namespace orvane
