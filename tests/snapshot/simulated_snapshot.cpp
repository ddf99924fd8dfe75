// Runs orvane-snapshot in front of a scenario's desktop:
// simulated_snapshot SCENARIO REPORT ARGUMENT...
// The arguments are the tool's own. REPORT becomes JSON: the tool's exit status and what it printed,
// the calls of the platform that it made, and what of the desktop has changed meanwhile.
#include <windows.h>

#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "scenario/build_desktop.h"
#include "scenario/json.h"
#include "scenario/scenario_reader.h"
#include "snapshot/command_line.h"
#include "snapshot/take_snapshot.h"
#include "windows/platform.h"
#include "windows/wide_text.h"

namespace orvane::simulation {
namespace {

// What a tool that only reads leaves as it was.
Json describeDesktop(const Desktop& desktop) {
  Json state;
  state["foreground"] = desktop.foreground() == nullptr ? Json() : Json(desktop.foreground()->id);
  state["keyEvents"] = desktop.keyEvents().size();
  state["clipboardSequence"] = desktop.clipboard.sequence;
  const Element* focused = desktop.focusedElement();
  state["focus"] = focused == nullptr ? Json() : Json(focused->window->id);
  for (const Window* window : desktop.zOrder()) {
    state["zOrder"].push_back(window->id);
    state["shown"][window->id] = {window->visible, window->minimized};
    if (window->selected != nullptr) state["selected"][window->id] = window->selected->index;
  }
  for (const auto& element : desktop.allElements()) {
    state["invoked"].push_back(element->invokedCount);
    state["values"].push_back(element->facts.value ? utf8FromText(*element->facts.value) : std::string());
  }
  return state;
}

int main(const std::vector<std::string>& arguments) {
  const Scenario scenario = readScenarioFile(arguments.at(0));
  Clock& clock = *new Clock;
  Books books;
  Desktop desktop(clock, books);
  buildDesktop(desktop, scenario.desktop);
  const Platform platform(desktop, nullptr, {});
  if (scenario.desktop.foreground) desktop.moveForeground(desktop.windowById(*scenario.desktop.foreground));
  std::vector<std::wstring> ofTool;
  for (std::size_t i = 2; i < arguments.size(); ++i) ofTool.push_back(wideFromText(textFromUtf8(arguments[i])));
  Json report;
  report["before"] = describeDesktop(desktop);
  const snapshot::Outcome outcome = snapshot::takeSnapshot(snapshot::readCommandLine(ofTool));
  report["after"] = describeDesktop(desktop);
  report["exitStatus"] = outcome.exitStatus;
  report["told"] = outcome.told;
  report["complaint"] = outcome.complaint;
  report["virtualMs"] = clock.nowMs();
  report["calls"] = Json::object();
  for (const auto& [name, count] : books.calls()) report["calls"][name] = count;
  report["held"] = Json::object();
  for (const auto& [kind, count] : books.held()) report["held"][std::string(kind)] = count;
  std::ofstream(arguments.at(1), std::ios::binary) << report.dump() << "\n";
  return 0;
}

}  // namespace
}  // namespace orvane::simulation

int main(int argumentCount, char** arguments) {
  try {
    return orvane::simulation::main({arguments + 1, arguments + argumentCount});
  } catch (const std::exception& error) {
    std::cerr << "simulated_snapshot: " << error.what() << "\n";
    return 2;
  }
}
