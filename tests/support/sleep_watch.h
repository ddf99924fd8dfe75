#pragma once

#include <cstdint>
#include <vector>

#include "support/simulated_desktop.h"

namespace orvane::simulation {

// How many COM references were held at the beginning of each pause, for as long as it lives.
class SleepWatch {
 public:
  explicit SleepWatch(SimulatedDesktop& desktop) : desktop_(desktop) {
    desktop_.world().books().watch([this](std::string_view call, const Window*, const Element*) {
      if (call == "Sleep") {
        comReferences_.push_back(desktop_.held(held_kind::comReferences));
      }
    });
  }
  ~SleepWatch() { desktop_.world().books().watch({}); }
  SleepWatch(const SleepWatch&) = delete;
  SleepWatch& operator=(const SleepWatch&) = delete;

  [[nodiscard]] const std::vector<std::int64_t>& comReferences() const { return comReferences_; }

 private:
  SimulatedDesktop& desktop_;
  std::vector<std::int64_t> comReferences_;
};

}  // namespace orvane::simulation
