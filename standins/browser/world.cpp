#include "browser/world.h"

#include <algorithm>
#include <utility>

#include "common/link.h"
#include "scenario/build_desktop.h"

namespace orvane::standins {

World::World(simulation::Scenario scenario, const std::vector<std::string>& ownIds)
    : scenario_(std::move(scenario)), clock_(*new simulation::Clock), desktop_(clock_, books_) {
  buildDesktop(desktop_, scenario_.desktop);
  for (const char* id : {"main", "backdrop"}) desktop_.addHostWindow(id, nullptr).visible = false;
  for (const std::string& id : ownIds) own_.push_back(desktop_.windowById(id));
  for (const auto& window : desktop_.allWindows()) {
    if (!owns(*window)) silence(*window);
  }
}

bool World::owns(const simulation::Window& window) const {
  return std::find(own_.begin(), own_.end(), &window) != own_.end();
}

// The process that owns the window lets its rules act.
void World::silence(simulation::Window& window) {
  window.rules.clear();
  for (simulation::Tab* tab : window.tabs) tab->rules.clear();
}

void World::start(std::int64_t originTicks) {
  originTicks_ = originTicks;
  desktop_.startRules();
}

void World::advance() {
  if (!originTicks_) return;
  clock_.sleep(millisecondsSince(*originTicks_) - clock_.nowMs());
}

}  // namespace orvane::standins
