#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "flutter_windows/browsers.h"
#include "flutter_windows/end_state.h"
#include "flutter_windows/stage.h"
#include "flutter_windows/steps.h"
#include "windows/engine_room.h"

namespace orvane::standins {

// What the library was given.
struct EngineFacts {
  std::string assetsPath;
  std::string icuDataPath;
  std::string aotLibraryPath;
  std::vector<std::string> entryPointArguments;
  int width = 0;
  int height = 0;
  std::vector<std::string> plugins;  // as registered, in order
};

// The interface's part in one run: waits until all windows stand, performs the steps, notes how it
// all ended, and closes the host. The report is written when the host has let go of the engine.
class Performance {
 public:
  explicit Performance(simulation::Scenario scenario);

  EngineFacts& engine() { return engine_; }
  void openView(HWND view, int width, int height);

  // A call of the host to the interface; the reply.
  simulation::Bytes messageFromHost(const std::string& channel, const simulation::Bytes& message);

  // The next thing to do, out of the message loop, once the first frame has been shown.
  void takeTurn();

  // The host ends. `dyingWindow` is its window that is being destroyed; null: there is none.
  void finish(HWND dyingWindow);

  // The first problem stands in the report.
  void noteProblem(const std::string& problem);
  void writeReport();

 private:
  enum class Phase { assembling, hostInFront, scenarioInFront, performing, settling, holding, over };

  void assemble();
  void enter(Phase phase);
  bool hasLasted(std::int64_t ms) const;
  void performStep();
  void settle();
  void takeEndState(HWND dyingWindow);
  void hold();
  void closeHost();
  void showProgress();
  simulation::Json describeEngine() const;

  simulation::Scenario scenario_;
  EngineFacts engine_;
  HWND view_ = nullptr;
  Stage stage_;
  Browsers browsers_;
  Steps steps_;
  Phase phase_ = Phase::assembling;
  ULONGLONG phaseBeganTick_ = 0;
  std::optional<EndState> end_;
  std::optional<std::string> problem_;
  bool isReportWritten_ = false;
};

// There is one of it in a process. Null until an engine is made.
Performance& startPerformance(simulation::Scenario scenario);
Performance* performance();

// The library's engines, views and messages.
simulation::EngineRoom& engineRoom();

}  // namespace orvane::standins
