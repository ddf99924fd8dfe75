#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "scenario/build_desktop.h"
#include "scenario/scenario_reader.h"
#include "world/desktop.h"

namespace orvane::simulation {

// A desktop out of the JSON of a scenario's "desktop", without a host.
class DesktopFixture : public ::testing::Test {
 protected:
  void build(const std::string& desktopJson) {
    buildDesktop(desktop, readScenario(R"({"desktop":)" + desktopJson + "}").desktop);
  }

  Window& window(const std::string& id) {
    Window* found = desktop.windowById(id);
    if (found == nullptr) throw std::runtime_error("no window " + id);
    return *found;
  }

  Element* find(const std::string& windowId, const std::string& id) {
    for (Element* element : desktop.descendants(*window(windowId).root)) {
      if (Desktop::reportName(*element) == id) return element;
    }
    return nullptr;
  }

  Element& element(const std::string& windowId, const std::string& id) {
    Element* found = find(windowId, id);
    if (found == nullptr) throw std::runtime_error("no element " + id);
    return *found;
  }

  std::string value(const std::string& windowId, const std::string& id) {
    const std::optional<Text> text = desktop.factsOf(element(windowId, id)).value;
    return text ? utf8FromText(*text) : "(null)";
  }

  std::string name(const std::string& windowId, const std::string& id) {
    const std::optional<Text> text = desktop.factsOf(element(windowId, id)).name;
    return text ? utf8FromText(*text) : "(null)";
  }

  void press(int virtualKey) {
    desktop.key(virtualKey, false, 1);
    desktop.key(virtualKey, true, 1);
  }

  void pressWithCtrl(int virtualKey) {
    desktop.key(0x11, false, 1);
    press(virtualKey);
    desktop.key(0x11, true, 1);
  }

  Clock& clock = *new Clock;
  Books books;
  Desktop desktop{clock, books};
};

}  // namespace orvane::simulation
