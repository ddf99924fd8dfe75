#include "support/simulated_desktop.h"

#include <gtest/gtest.h>
// windows.h first: objbase.h builds on it.
#include <objbase.h>

#include <memory>
#include <stdexcept>
#include <utility>
#include <variant>

#include "scenario/build_desktop.h"
#include "scenario/scenario_reader.h"

namespace orvane::simulation {
namespace {

Scenario readWithSteps(const std::string& desktop, const std::string& steps) {
  return readScenario(R"({"desktop": )" + desktop + R"(, "steps": )" + steps + "}");
}

// A tab item goes by its tab's title.
bool isNamed(const Element& element, std::string_view name) { return Desktop::reportName(element) == name; }

}  // namespace

struct SimulatedDesktop::World {
  // Never freed, as it must be: reachable for as long as the process lives.
  static World& make(const DesktopPlan& plan) {
    if (std::exchange(isStanding, true)) {
      throw std::logic_error("another simulated desktop still stands in this process");
    }
    static auto* const kept = new std::vector<std::unique_ptr<World>>;
    World& world = *kept->emplace_back(std::make_unique<World>());
    world.furnish(plan);
    return world;
  }

  static inline bool isStanding = false;

  Clock& clock = *new Clock;
  Books books;
  Desktop desktop{clock, books};
  Platform platform{desktop, nullptr, {}};

 private:
  void furnish(const DesktopPlan& plan) {
    buildDesktop(desktop, plan);
    if (plan.foreground) {
      desktop.moveForeground(desktop.windowById(*plan.foreground));
    }
    desktop.startRules();
    // The test's own apartment: no fault for the calls under test may meet it.
    books.setFaults({});
    EXPECT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    books.setFaults(plan.faults);
  }
};

SimulatedDesktop::SimulatedDesktop(const std::string& desktop)
    : desktopJson_(desktop), world_(World::make(readWithSteps(desktop, "[]").desktop)) {}

SimulatedDesktop::~SimulatedDesktop() {
  world_.books.setFaults({});
  for (const auto& [kind, count] : world_.books.held()) {
    EXPECT_EQ(count, 0) << kind << " are still held at the end of the test";
  }
  // With references left, leaving would end the whole program before the failure is told.
  if (held(held_kind::comReferences) == 0) {
    ::CoUninitialize();
  }
  World::isStanding = false;
}

Desktop& SimulatedDesktop::world() { return world_.desktop; }

Platform& SimulatedDesktop::platform() { return world_.platform; }

std::int64_t SimulatedDesktop::nowMs() const { return world_.clock.nowMs(); }

HWND SimulatedDesktop::window(std::string_view id) const {
  return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(world_.desktop.handleOfId(id)));
}

bool SimulatedDesktop::hasWindow(std::string_view id) const { return world_.desktop.windowById(id) != nullptr; }

Window& SimulatedDesktop::windowState(std::string_view id) const {
  Window* window = world_.desktop.windowById(id);
  if (window == nullptr) {
    throw std::invalid_argument("no window \"" + std::string(id) + "\" lives");
  }
  return *window;
}

Element& SimulatedDesktop::element(std::string_view window, std::string_view id) const {
  const Window& owner = windowState(window);
  Element* found = nullptr;
  for (const auto& element : world_.desktop.allElements()) {
    if (element->window != &owner || element->removed || !isNamed(*element, id)) {
      continue;
    }
    if (found == nullptr || world_.desktop.isAvailable(*element)) {
      found = element.get();
    }
  }
  if (found == nullptr) {
    throw std::invalid_argument("no element \"" + std::string(id) + "\" in \"" + std::string(window) + "\"");
  }
  return *found;
}

std::optional<std::string> SimulatedDesktop::value(std::string_view window, std::string_view id) const {
  const std::optional<Text> value = world_.desktop.factsOf(element(window, id)).value;
  return value ? std::optional(utf8FromText(*value)) : std::nullopt;
}

int SimulatedDesktop::invocations(std::string_view window, std::string_view id) const {
  return element(window, id).invokedCount;
}

std::string SimulatedDesktop::selectedTab(std::string_view window) const {
  const Tab* selected = windowState(window).selected;
  return selected == nullptr ? std::string() : utf8FromText(selected->title);
}

std::string SimulatedDesktop::foreground() const {
  const Window* window = world_.desktop.foreground();
  return window == nullptr ? std::string() : window->id;
}

std::string SimulatedDesktop::focus() const {
  const Element* focused = world_.desktop.focusedElement();
  return focused == nullptr ? std::string()
                            : focused->window->id + "/" + Desktop::reportName(*focused).value_or(std::string());
}

std::vector<std::string> SimulatedDesktop::zOrder() const {
  std::vector<std::string> ids;
  for (const Window* window : world_.desktop.zOrder()) {
    ids.push_back(window->id);
  }
  return ids;
}

std::vector<std::string> SimulatedDesktop::keys() const {
  std::vector<std::string> keys;
  for (const KeyEvent& event : world_.desktop.keyEvents()) {
    keys.push_back((event.up ? "up " : "down ") + std::to_string(event.virtualKey));
  }
  return keys;
}

const std::vector<KeyEvent>& SimulatedDesktop::keyEvents() const { return world_.desktop.keyEvents(); }

std::int64_t SimulatedDesktop::platformCalls(std::string_view name) const {
  const auto found = world_.books.calls().find(name);
  return found == world_.books.calls().end() ? 0 : found->second;
}

std::int64_t SimulatedDesktop::held(std::string_view kind) const {
  const auto found = world_.books.held().find(kind);
  return found == world_.books.held().end() ? 0 : found->second;
}

void SimulatedDesktop::perform(std::string_view window, const std::string& actions) {
  const std::string steps = R"([{"do": )" + actions + R"(, "window": ")" + std::string(window) + R"("}])";
  const Scenario scenario = readWithSteps(desktopJson_, steps);
  world_.desktop.perform(std::get<step::Do>(scenario.steps.front()).actions, &windowState(window), nullptr);
}

void SimulatedDesktop::setFaults(const std::string& faults) {
  Json desktop = Json::parse(desktopJson_);
  desktop["faults"] = Json::parse(faults);
  world_.books.setFaults(readWithSteps(desktop.dump(), "[]").desktop.faults);
}

void SimulatedDesktop::bringToFront(std::string_view id) {
  world_.desktop.moveForeground(id.empty() ? nullptr : &windowState(id));
}

}  // namespace orvane::simulation
