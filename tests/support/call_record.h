#pragma once

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/simulated_desktop.h"

namespace orvane::simulation {

// The calls of the platform that begin while it lives, in their order: those of the names given, or
// all. A call is noted as "Name window", or "Name" where the platform knows no window for it.
class CallRecord {
 public:
  CallRecord(SimulatedDesktop& desktop, std::initializer_list<std::string_view> names)
      : desktop_(desktop), names_(names) {
    desktop_.world().books().watch([this](std::string_view call, const Window* window, const Element*) {
      if (names_.empty() || names_.contains(call)) {
        calls_.push_back(window == nullptr ? std::string(call) : std::string(call) + " " + window->id);
      }
    });
  }
  ~CallRecord() { desktop_.world().books().watch({}); }
  CallRecord(const CallRecord&) = delete;
  CallRecord& operator=(const CallRecord&) = delete;

  [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }

 private:
  SimulatedDesktop& desktop_;
  std::set<std::string_view> names_;
  std::vector<std::string> calls_;
};

}  // namespace orvane::simulation
