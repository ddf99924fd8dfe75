#include "scenario/run_scenario.h"

#include "scenario/build_desktop.h"
#include "scenario/report.h"
#include "scenario/run_record.h"
#include "scenario/scripted_interface.h"
#include "windows/platform.h"

namespace orvane::simulation {
namespace {

// All that a run stands on. Threads of the host may still use it while the process ends.
struct Run {
  explicit Run(const Scenario& scenario)
      : desktop(clock, books),
        script(scenario, desktop),
        record(desktop),
        platform(*new Platform(desktop, &script, scenario.arguments)) {
    script.attach(platform);
  }

  Clock& clock = *new Clock;
  Books books;
  Desktop desktop;
  ScriptedInterface script;
  RunRecord record;
  Platform& platform;
};

Json play(const Scenario& scenario, const std::function<std::string()>& readErrorText, Run& run) {
  buildDesktop(run.desktop, scenario.desktop);
  const int exitCode = run.platform.run();
  return describeRun(scenario, exitCode, run.script, run.platform, readErrorText());
}

}  // namespace

Json runScenario(const Scenario& scenario, const std::function<std::string()>& readErrorText) {
  static Run* const run = new Run(scenario);
  return play(scenario, readErrorText, *run);
}

Json runScenarioRecorded(const Scenario& scenario, const std::function<std::string()>& readErrorText) {
  static Run* const run = new Run(scenario);
  run->script.keep(run->record);
  Json both;
  both["report"] = play(scenario, readErrorText, *run);
  both["record"] = run->record.describe();
  return both;
}

}  // namespace orvane::simulation
