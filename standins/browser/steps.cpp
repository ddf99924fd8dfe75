#include "browser/steps.h"

#include <stdexcept>

namespace orvane::standins {
namespace {

namespace step = simulation::step;
using simulation::Window;

Window& windowOf(World& world, const std::string& id) {
  Window* window = world.desktop().windowById(id);
  if (window == nullptr) throw std::runtime_error("a step acts on the window \"" + id + "\", which isn't there");
  return *window;
}

struct StepPerformer {
  World& world;
  Mirror& mirror;

  void operator()(const step::BringForward& what) const { bringForward(world, mirror, what.window); }
  void operator()(const step::Close& what) const { world.desktop().closeByPerson(windowOf(world, what.window)); }
  void operator()(const step::Minimize& what) const { world.desktop().minimizeByPerson(windowOf(world, what.window)); }
  void operator()(const step::Resize& what) const {
    world.desktop().resizeByPerson(windowOf(world, what.window), what.bounds);
  }
  void operator()(const step::SwitchTab& what) const {
    world.desktop().switchTab(windowOf(world, what.window), what.title);
  }
  void operator()(const step::Do& what) const {
    world.desktop().perform(what.actions, what.window ? &windowOf(world, *what.window) : nullptr, nullptr);
  }
  template <typename Other>
  void operator()(const Other&) const {
    throw std::runtime_error("that step isn't done by a browser");
  }
};

}  // namespace

void performStep(World& world, Mirror& mirror, std::size_t index) {
  std::visit(StepPerformer{world, mirror}, world.scenario().steps.at(index));
}

void bringForward(World& world, Mirror& mirror, const std::optional<std::string>& windowId) {
  Window* window = windowId ? &windowOf(world, *windowId) : nullptr;
  if (window != nullptr) window->minimized = false;
  world.desktop().moveForeground(window);
  mirror.bringUp(window);
}

}  // namespace orvane::standins
