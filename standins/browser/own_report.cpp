#include "browser/own_report.h"

#include "scenario/report.h"

namespace orvane::standins {
namespace {

// Whether "window/element", or a window's id by itself, speaks of a window of the process.
bool speaksOfOwn(World& world, const std::string& place) {
  for (const simulation::Window* window : world.ownWindows()) {
    if (place == window->id || place.starts_with(window->id + '/')) return true;
  }
  return false;
}

Json ownMembers(World& world, const simulation::Json& all) {
  Json own = Json::object();
  for (const auto& [place, value] : all.items()) {
    if (speaksOfOwn(world, place)) own[place] = Json::parse(value.dump());
  }
  return own;
}

Json describeInput(const std::vector<simulation::KeyEvent>& events) {
  Json list = Json::array();
  for (const simulation::KeyEvent& event : events) {
    if (event.batch == 0) continue;
    list.push_back({{"ms", event.ms},
                    {"window", event.window.empty() ? Json(nullptr) : Json(event.window)},
                    {"element", event.element ? Json(*event.element) : Json(nullptr)},
                    {"vk", event.virtualKey},
                    {"up", event.up}});
  }
  return list;
}

}  // namespace

Json describeOwnWindows(World& world) {
  const simulation::Json all = simulation::describeDesktop(world.desktop());
  const simulation::Json& focus = all.at("focus");
  const bool hasFocus = focus.is_string() && speaksOfOwn(world, focus.get<std::string>());
  return {{"input", describeInput(world.desktop().keyEvents())},
          {"tabs", ownMembers(world, all.at("tabs"))},
          {"values", ownMembers(world, all.at("values"))},
          {"invoked", ownMembers(world, all.at("invoked"))},
          {"focus", hasFocus ? Json(focus.get<std::string>()) : Json(nullptr)}};
}

}  // namespace orvane::standins
