#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "flutter_windows/browsers.h"
#include "flutter_windows/foreground_watch.h"
#include "flutter_windows/stacking.h"
#include "flutter_windows/stage.h"
#include "scenario/call_records.h"
#include "scenario/value_codec.h"

namespace orvane::standins {

// Performs a scenario's steps: sends the interface's calls to the host, does to the host's windows
// what people do, and asks the browsers for the rest. A step that can't be done throws
// std::runtime_error.
class Steps {
 public:
  Steps(const simulation::Scenario& scenario, Stage& stage, Browsers& browsers);
  ~Steps();
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;

  // What comes before the first step, each some time after the one before: the host in front, then
  // whom the scenario puts there, then the beginning of time.
  void bringUpHost();
  void putScenarioInFront();
  void start();

  // False: none is left, or the next one has to wait.
  bool performNext();
  bool areDone() { return hasSettled() && next_ == scenario_.steps.size() && nowMs() >= resumeAtMs_; }

  // The foreground stays where it was left. To be called in every turn.
  void watchForeground();

  // The windows stand as they were left. Has to be asked until it is so.
  bool hasSettled() { return stacking_.settle(); }

  // How long a change of the foreground takes to reach everybody: events of the display that are
  // still under way would bring the window back that was in front before.
  static constexpr std::int64_t foregroundSettlingMs = 120;

  // Since the first step began; 0 before.
  std::int64_t nowMs() const;
  simulation::CallRecords& records() { return records_; }

 private:
  void perform(const simulation::step::Call& step);
  void perform(const simulation::step::Bytes& step);
  void perform(const simulation::step::Wait& step);
  void perform(const simulation::step::BringForward& step);
  void perform(const simulation::step::Close& step);
  void perform(const simulation::step::Minimize& step);
  void perform(const simulation::step::Resize& step);
  void perform(const simulation::step::ChooseMenu& step);
  void perform(const simulation::step::SwitchTab& step);
  void perform(const simulation::step::Post& step);
  void perform(const simulation::step::Do& step);

  void bringForward(const std::optional<std::string>& window);
  void send(const std::string& channel, const std::vector<std::uint8_t>& message, const std::string& as,
            const simulation::Json& method);
  void letForegroundSettle();
  std::optional<std::vector<std::uint8_t>> deliver(const std::string& channel, const std::vector<std::uint8_t>& message,
                                                   bool opensMenu);
  void leaveToBrowser(const std::string& window);
  std::int64_t messageParameter(const simulation::Json& parameter);

  const simulation::Scenario& scenario_;
  Stage& stage_;
  Browsers& browsers_;
  Stacking stacking_;
  ForegroundWatch foregroundWatch_;
  simulation::ValueSources sources_;
  simulation::CallRecords records_;
  std::size_t next_ = 0;
  std::size_t current_ = 0;
  std::optional<std::int64_t> originTicks_;
  std::int64_t resumeAtMs_ = 0;
  std::optional<int> nextMenuEntry_;
};

}  // namespace orvane::standins
