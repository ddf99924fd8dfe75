#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "scenario/call_records.h"
#include "scenario/json.h"
#include "scenario/run_record.h"
#include "scenario/scenario.h"
#include "scenario/value_codec.h"
#include "windows/platform.h"

namespace orvane::simulation {

// The interface that performs a scenario's steps and keeps what came back.
class ScriptedInterface : public InterfaceScript {
 public:
  ScriptedInterface(const Scenario& scenario, Desktop& desktop);

  // Must be called before the host runs: where calls and messages go.
  void attach(Platform& platform) { platform_ = &platform; }

  // Must be called before the host runs: tells `record` when the steps begin and end.
  void keep(RunRecord& record) { record_ = &record; }

  bool performStep() override;
  void stepsDone() override;
  std::optional<Bytes> messageFromHost(const std::string& channel, const Bytes& message) override;

  // In the report's forms.
  const Json& replies() const { return records_.replies(); }
  const Json& callsFromHost() const { return records_.callsFromHost(); }
  const Json& endState() const { return endState_; }  // null until the steps are done

 private:
  void begin();
  void perform(const step::Call& step);
  void perform(const step::Bytes& step);
  void perform(const step::Wait& step);
  void perform(const step::BringForward& step);
  void perform(const step::Close& step);
  void perform(const step::Minimize& step);
  void perform(const step::Resize& step);
  void perform(const step::ChooseMenu& step);
  void perform(const step::SwitchTab& step);
  void perform(const step::Post& step);
  void perform(const step::Do& step);

  void send(const std::string& channel, const Bytes& message, const std::string& as, const Json& method);
  std::uint64_t messageParameter(const Json& parameter) const;

  const Scenario& scenario_;
  Desktop& desktop_;
  Platform* platform_ = nullptr;
  RunRecord* record_ = nullptr;
  ValueSources sources_;
  bool hasBegun_ = false;
  std::size_t nextStep_ = 0;
  CallRecords records_;
  Json endState_;
};

}  // namespace orvane::simulation
