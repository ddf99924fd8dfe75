#include "scenario/scripted_interface.h"

#include "scenario/report.h"
#include "scenario/trace_times.h"

namespace orvane::simulation {
namespace {

bool hasStepTimes(const Json& value, const std::vector<std::int64_t>& times) {
  return value.is_object() && value.contains("logs") && value.at("logs").is_array() &&
         value.at("logs").size() == times.size();
}

}  // namespace

ScriptedInterface::ScriptedInterface(const Scenario& scenario, Desktop& desktop)
    : scenario_(scenario), desktop_(desktop) {
  sources_.handleOf = [this](const std::string& id) { return desktop_.handleOfId(id); };
  sources_.replyValue = [this](const std::string& reference) { return records_.replyValue(reference); };
}

bool ScriptedInterface::performStep() {
  if (!hasBegun_) begin();
  // What it posts to the host is handled in front of the step.
  if (desktop_.clock().runDueEvents()) return true;
  if (nextStep_ == scenario_.steps.size()) return false;
  std::visit([this](const auto& step) { perform(step); }, scenario_.steps[nextStep_++]);
  return true;
}

void ScriptedInterface::stepsDone() {
  endState_ = describeDesktop(desktop_);
  if (record_ != nullptr) record_->end();
}

void ScriptedInterface::begin() {
  hasBegun_ = true;
  const DesktopPlan& plan = scenario_.desktop;
  if (plan.setsForeground) desktop_.moveForeground(plan.foreground ? desktop_.windowById(*plan.foreground) : nullptr);
  if (record_ != nullptr) record_->begin();
  desktop_.startRules();
}

std::optional<Bytes> ScriptedInterface::messageFromHost(const std::string& channel, const Bytes& message) {
  records_.addCallFromHost(channel, message, desktop_.clock().nowMs());
  return emptySuccess();
}

void ScriptedInterface::perform(const step::Call& step) {
  send(step.channel, encodeMethodCall(step.method, step.arguments, sources_), step.as, step.method);
}

void ScriptedInterface::perform(const step::Bytes& step) {
  const auto call = decodeMethodCall(step.message);
  send(step.channel, step.message, step.as, call ? Json(call->method) : Json(nullptr));
}

void ScriptedInterface::perform(const step::Wait& step) { desktop_.clock().sleep(step.ms); }

// What acts on a window that has gone does nothing, as rule actions do.
void ScriptedInterface::perform(const step::BringForward& step) {
  if (!step.window) return desktop_.moveForeground(nullptr);
  Window* const window = desktop_.windowById(*step.window);
  if (window == nullptr) return;
  // A person can't bring a minimised window up without restoring it.
  if (!window->ofHost) window->minimized = false;
  desktop_.moveForeground(window);
}

void ScriptedInterface::perform(const step::Close& step) {
  if (Window* const window = desktop_.windowById(step.window)) desktop_.closeByPerson(*window);
}

void ScriptedInterface::perform(const step::Minimize& step) {
  if (Window* const window = desktop_.windowById(step.window)) desktop_.minimizeByPerson(*window);
}

void ScriptedInterface::perform(const step::Resize& step) {
  if (Window* const window = desktop_.windowById(step.window)) desktop_.resizeByPerson(*window, step.bounds);
}

void ScriptedInterface::perform(const step::ChooseMenu& step) { desktop_.nextMenuChoice = step.entry; }

void ScriptedInterface::perform(const step::SwitchTab& step) {
  if (Window* const window = desktop_.windowById(step.window)) desktop_.switchTab(*window, step.title);
}

void ScriptedInterface::perform(const step::Post& step) {
  if (Window* const window = desktop_.windowById(step.window)) {
    platform_->post(*window, step.message, messageParameter(step.wParam),
                    static_cast<std::int64_t>(messageParameter(step.lParam)));
  }
}

void ScriptedInterface::perform(const step::Do& step) {
  Window* const window = step.window ? desktop_.windowById(*step.window) : nullptr;
  if (step.window && window == nullptr) return;
  desktop_.perform(step.actions, window, nullptr);
}

void ScriptedInterface::send(const std::string& channel, const Bytes& message, const std::string& as,
                             const Json& method) {
  const Clock& clock = desktop_.clock();
  const std::int64_t startMs = clock.nowMs();
  startTraceTimes(clock);
  if (record_ != nullptr) record_->beginReply();
  const std::optional<Bytes> reply = platform_->sendToHost(channel, message);
  if (record_ != nullptr) record_->endReply();
  Json& record = records_.addReply(as, method, reply, startMs, clock.nowMs());
  if (hasStepTimes(record["value"], traceTimes())) record["stepMs"] = traceTimes();
}

// 64 bits, however they are meant.
std::uint64_t ScriptedInterface::messageParameter(const Json& parameter) const {
  if (parameter.is_object()) return desktop_.handleOfId(parameter.at("$window").get<std::string>());
  if (parameter.is_number_unsigned()) return parameter.get<std::uint64_t>();
  return static_cast<std::uint64_t>(parameter.get<std::int64_t>());
}

}  // namespace orvane::simulation
