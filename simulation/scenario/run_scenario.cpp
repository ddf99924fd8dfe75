#include "scenario/run_scenario.h"

#include "scenario/build_desktop.h"
#include "scenario/report.h"
#include "scenario/scripted_interface.h"
#include "windows/platform.h"

namespace orvane::simulation {
namespace {

// All that a run stands on. Threads of the host may still use it while the process ends.
struct Run {
  explicit Run(const Scenario& scenario)
      : desktop(clock, books),
        script(scenario, desktop),
        platform(*new Platform(desktop, &script, scenario.arguments)) {
    script.attach(platform);
  }

  Clock& clock = *new Clock;
  Books books;
  Desktop desktop;
  ScriptedInterface script;
  Platform& platform;
};

}  // namespace

Json runScenario(const Scenario& scenario, const std::function<std::string()>& readErrorText) {
  static Run* const run = new Run(scenario);
  buildDesktop(run->desktop, scenario.desktop);
  const int exitCode = run->platform.run();
  return describeRun(scenario, exitCode, run->script, run->platform, readErrorText());
}

}  // namespace orvane::simulation
