#include "scenario/trace_times.h"

#include <string>

namespace orvane::simulation {
namespace {

struct TraceClock {
  const Clock* clock = nullptr;
  std::vector<std::int64_t> times;
};

TraceClock& traceClock() {
  static TraceClock one;
  return one;
}

void noteStep() {
  TraceClock& noted = traceClock();
  if (noted.clock != nullptr) noted.times.push_back(noted.clock->nowMs());
}

}  // namespace

void startTraceTimes(const Clock& clock) {
  traceClock().clock = &clock;
  traceClock().times.clear();
}

const std::vector<std::int64_t>& traceTimes() { return traceClock().times; }

}  // namespace orvane::simulation

namespace orvane {

class EncodableValue;

// The linkage name of appendTrace(TraceLog&, const std::string&, const std::string&).
#define ORVANE_APPEND_TRACE                                         \
  "_ZN6orvane11appendTraceERSt6vectorINS_14EncodableValueESaIS1_EE" \
  "RKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEESC_"

void appendTraceItself(std::vector<EncodableValue>& trace, const std::string& step,
                       const std::string& result) __asm__("__real_" ORVANE_APPEND_TRACE);

void appendTraceWithTime(std::vector<EncodableValue>& trace, const std::string& step,
                         const std::string& result) __asm__("__wrap_" ORVANE_APPEND_TRACE);

void appendTraceWithTime(std::vector<EncodableValue>& trace, const std::string& step, const std::string& result) {
  simulation::noteStep();
  appendTraceItself(trace, step, result);
}

}  // namespace orvane
