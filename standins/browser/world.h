#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "scenario/scenario.h"
#include "world/desktop.h"

namespace orvane::standins {

// The scenario's desktop as one of its processes keeps it. All windows stand in it, so that every
// name resolves, the host's two included; only the rules of the process's own windows act here.
class World {
 public:
  World(simulation::Scenario scenario, const std::vector<std::string>& ownIds);

  simulation::Desktop& desktop() { return desktop_; }
  const simulation::Scenario& scenario() const { return scenario_; }
  const std::vector<simulation::Window*>& ownWindows() const { return own_; }
  bool owns(const simulation::Window& window) const;

  // The first step began at these ticks of QueryPerformanceCounter: rules' times count from there.
  void start(std::int64_t originTicks);
  // Time passes up to the present moment, and what is due by then happens. Before the start no time
  // passes.
  void advance();

 private:
  void silence(simulation::Window& window);

  simulation::Scenario scenario_;
  simulation::Clock& clock_;
  simulation::Books books_;
  simulation::Desktop desktop_;
  std::vector<simulation::Window*> own_;
  std::optional<std::int64_t> originTicks_;
};

}  // namespace orvane::standins
