#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "scenario/scenario.h"

namespace orvane::standins {

// The windows of a run by their names in the scenario: the host's own, which it names, and those of
// the other processes.
class Stage {
 public:
  explicit Stage(const simulation::Scenario& scenario) : scenario_(scenario) {}

  // The host's main window is the one that `view` lies in.
  void setView(HWND view) { view_ = view; }
  // Names the host's windows that are there by now.
  void nameHostWindows();

  // Those of the scenario's windows that haven't appeared so far.
  std::vector<std::string> missingWindows();

  // The host's main window and behind it those of the scenario, as it lists them.
  std::vector<HWND> wantedOrder();

  static bool isHosts(const std::string& id) { return id == "main" || id == "backdrop"; }
  // Throws std::runtime_error when the window isn't there, or not any more.
  HWND window(const std::string& id);
  // Null: it isn't there.
  HWND windowIfAny(const std::string& id);
  // The handle that it has or had; 0: it never was.
  std::uint64_t handleOf(const std::string& id);

 private:
  void nameMain();
  void nameBackdrop();

  const simulation::Scenario& scenario_;
  HWND view_ = nullptr;
  std::map<std::string, HWND> known_;
};

}  // namespace orvane::standins
