#include "flutter_windows/steps.h"

#include <algorithm>
#include <stdexcept>
#include <variant>

#include "browser/real_clipboard.h"
#include "flutter_windows/host_person.h"
#include "flutter_windows/menu_person.h"
#include "flutter_windows/message_turn.h"
#include "flutter_windows/performance.h"
#include "flutter_windows/place_hook.h"

namespace orvane::standins {
namespace {

namespace action = simulation::action;
namespace step = simulation::step;

constexpr const char* menuMethod = "showNativeHotKeysMenu";

// The window whose owner is to do a list of actions that names none for all of them; nullopt: any.
std::optional<std::string> firstWindowNamed(const std::vector<simulation::Action>& actions) {
  for (const simulation::Action& each : actions) {
    if (const auto* foreground = std::get_if<action::MoveForeground>(&each); foreground && foreground->window) {
      return foreground->window;
    }
    if (const auto* closing = std::get_if<action::CloseWindow>(&each)) return closing->window;
    if (const auto* minimizing = std::get_if<action::MinimizeWindow>(&each)) return minimizing->window;
    if (const auto* clipboard = std::get_if<action::SetClipboard>(&each); clipboard && clipboard->content.lockedBy) {
      return clipboard->content.lockedBy;
    }
  }
  return std::nullopt;
}

// What the interface can do by itself where no browser runs.
struct OwnActions {
  Stage& stage;

  void operator()(const action::MoveForeground& what) const {
    what.window ? bringUp(stage.window(*what.window)) : leaveAllWindows();
  }
  void operator()(const action::CloseWindow& what) const { closeWindow(stage.window(what.window)); }
  void operator()(const action::SetClipboard& what) const {
    if (!what.keepsForms) writeClipboard(messageTurnWindow(), what.content);
  }
  template <typename Other>
  void operator()(const Other&) const {
    throw std::runtime_error("an action speaks of a window that has no browser");
  }
};

}  // namespace

Steps::Steps(const simulation::Scenario& scenario, Stage& stage, Browsers& browsers)
    : scenario_(scenario), stage_(stage), browsers_(browsers) {
  sources_.handleOf = [this](const std::string& id) { return stage_.handleOf(id); };
  sources_.replyValue = [this](const std::string& reference) { return records_.replyValue(reference); };
}

Steps::~Steps() { removePlaceHook(); }

void Steps::bringUpHost() {
  // A menu that opens under the pointer would have an entry chosen from the start.
  ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1);
  bringUp(stage_.window("main"));
  stacking_.want(stage_.wantedOrder());
}

void Steps::putScenarioInFront() {
  const simulation::DesktopPlan& plan = scenario_.desktop;
  if (plan.setsForeground) bringForward(plan.foreground);
  stacking_.wantPresent();
}

void Steps::start() {
  installPlaceHook([this] {
    stage_.nameHostWindows();
    stacking_.wantPresent();
  });
  originTicks_ = nowTicks();
  browsers_.askAll({{"op", "start"}, {"origin", *originTicks_}});
}

bool Steps::performNext() {
  if (next_ == scenario_.steps.size() || !hasSettled() || nowMs() < resumeAtMs_) return false;
  current_ = next_++;
  const HWND foreground = ::GetForegroundWindow();
  stage_.nameHostWindows();
  std::visit([this](const auto& step) { perform(step); }, scenario_.steps[current_]);
  stage_.nameHostWindows();
  stacking_.wantPresent();
  watchForeground();
  if (::GetForegroundWindow() != foreground) letForegroundSettle();
  return true;
}

void Steps::watchForeground() {
  if (!foregroundWatch_.look(stage_.windowIfAny("main"))) return;
  stacking_.wantPresent();
  letForegroundSettle();
}

void Steps::letForegroundSettle() { resumeAtMs_ = std::max(resumeAtMs_, nowMs() + foregroundSettlingMs); }

std::int64_t Steps::nowMs() const { return originTicks_ ? millisecondsSince(*originTicks_) : 0; }

void Steps::bringForward(const std::optional<std::string>& window) {
  if (window && Stage::isHosts(*window)) return bringUp(stage_.window(*window));
  if (!window && !browsers_.areThere()) return leaveAllWindows();
  const Json request{{"op", "foreground"}, {"window", window ? Json(*window) : Json(nullptr)}};
  window ? browsers_.ask(*window, request) : browsers_.askFirst(request);
}

void Steps::perform(const step::Call& step) {
  send(step.channel, encodeMethodCall(step.method, step.arguments, sources_), step.as, step.method);
}

void Steps::perform(const step::Bytes& step) {
  const auto call = simulation::decodeMethodCall(step.message);
  send(step.channel, step.message, step.as, call ? simulation::Json(call->method) : simulation::Json(nullptr));
}

void Steps::perform(const step::Wait& step) { resumeAtMs_ = nowMs() + step.ms; }

void Steps::perform(const step::BringForward& step) { bringForward(step.window); }

void Steps::perform(const step::Close& step) {
  Stage::isHosts(step.window) ? closeWindow(stage_.window(step.window)) : leaveToBrowser(step.window);
}

void Steps::perform(const step::Minimize& step) {
  Stage::isHosts(step.window) ? minimizeWindow(stage_.window(step.window)) : leaveToBrowser(step.window);
}

void Steps::perform(const step::Resize& step) {
  Stage::isHosts(step.window) ? resizeWindow(stage_.window(step.window), step.bounds) : leaveToBrowser(step.window);
}

void Steps::perform(const step::ChooseMenu& step) { nextMenuEntry_ = step.entry; }

void Steps::perform(const step::SwitchTab& step) { leaveToBrowser(step.window); }

void Steps::perform(const step::Post& step) {
  ::PostMessageW(stage_.window(step.window), step.message, static_cast<WPARAM>(messageParameter(step.wParam)),
                 static_cast<LPARAM>(messageParameter(step.lParam)));
}

void Steps::perform(const step::Do& step) {
  if (!browsers_.areThere()) {
    for (const simulation::Action& each : step.actions) std::visit(OwnActions{stage_}, each);
    return;
  }
  const auto named = step.window ? step.window : firstWindowNamed(step.actions);
  if (named && !Stage::isHosts(*named) && stage_.windowIfAny(*named) != nullptr) return leaveToBrowser(*named);
  if (step.window) stage_.window(*step.window);
  browsers_.askFirst({{"op", "step"}, {"index", current_}});
}

void Steps::send(const std::string& channel, const std::vector<std::uint8_t>& message, const std::string& as,
                 const simulation::Json& method) {
  const std::int64_t startMs = nowMs();
  const auto reply = deliver(channel, message, method == menuMethod);
  records_.addReply(as, method, reply, startMs, nowMs());
}

std::optional<std::vector<std::uint8_t>> Steps::deliver(const std::string& channel,
                                                        const std::vector<std::uint8_t>& message, bool opensMenu) {
  if (!opensMenu) return engineRoom().deliver(channel, message);
  const MenuPerson person(nextMenuEntry_);
  auto reply = engineRoom().deliver(channel, message);
  if (person.hasSeenMenu()) nextMenuEntry_.reset();
  return reply;
}

void Steps::leaveToBrowser(const std::string& window) { browsers_.ask(window, {{"op", "step"}, {"index", current_}}); }

std::int64_t Steps::messageParameter(const simulation::Json& parameter) {
  if (!parameter.is_object()) return parameter.get<std::int64_t>();
  return static_cast<std::int64_t>(stage_.handleOf(parameter.at("$window").get<std::string>()));
}

}  // namespace orvane::standins
