#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "windows/platform.h"
#include "world/desktop.h"

namespace orvane::simulation {

// A fresh simulated Windows for one test: the functions of src/ are called in it directly, on the
// main simulated thread, without a running host. Several may stand one after another in a process,
// never two at a time. Its end is a check: whatever the code under test took is given back.
//
// Declare it before the sessions and elements that are made in it.
class SimulatedDesktop {
 public:
  // `desktop` is the JSON text of a scenario's `desktop`. Where `foreground` is absent, no window is
  // in front. Rules with a time count from here. Throws ScenarioError for a desktop that can't be read.
  explicit SimulatedDesktop(const std::string& desktop);

  // Leaves the apartment; a test failure for everything that is still held, by its kind.
  ~SimulatedDesktop();

  SimulatedDesktop(const SimulatedDesktop&) = delete;
  SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

  Desktop& world();
  Platform& platform();
  std::int64_t nowMs() const;  // virtual, 0 at the start

  // The handle that the window of this id has, or had while it lived. Null for an unknown id.
  HWND window(std::string_view id) const;
  bool hasWindow(std::string_view id) const;  // it lives
  // A window as it stands; an exception that ends the test when it doesn't live.
  Window& windowState(std::string_view id) const;

  // A control by its id or by its tab's title; the one of the selected tab where several pages have
  // one. An exception that ends the test when there is none.
  Element& element(std::string_view window, std::string_view id) const;

  // The control's value as it stands; nullopt for a null string and without a Value pattern.
  std::optional<std::string> value(std::string_view window, std::string_view id) const;
  int invocations(std::string_view window, std::string_view id) const;  // those that worked
  std::string selectedTab(std::string_view window) const;               // its title; empty for none
  std::string foreground() const;                                       // a window's id; empty for none
  std::string focus() const;  // "window/element" of the keyboard focus; empty for none
  std::vector<std::string> zOrder() const;

  // "down"/"up" and the virtual key of every key event so far, such as "down 17".
  std::vector<std::string> keys() const;
  const std::vector<KeyEvent>& keyEvents() const;

  std::int64_t platformCalls(std::string_view name) const;  // 0 for a call that was never made
  std::int64_t held(std::string_view kind) const;

  // Rule actions at once, as a scenario's `do` writes them: a JSON list.
  void perform(std::string_view window, const std::string& actions);
  // Replaces the faults by those of this JSON list; their counting begins here.
  void setFaults(const std::string& faults);
  // Brings the window up as a person does; an empty id leaves no window in front.
  void bringToFront(std::string_view id);

 private:
  struct World;

  std::string desktopJson_;
  World& world_;  // kept until the process ends: threads of the host may still stand in it
};

}  // namespace orvane::simulation
