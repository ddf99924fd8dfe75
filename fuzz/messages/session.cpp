#include "messages/session.h"

#include <windows.h>
// windows.h first: spellcheck.h builds on it.
#include <spellcheck.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "browser_channel/settled_providers.h"
#include "desktop/clean_background_state.h"
#include "desktop/previous_window.h"
#include "messages/promises.h"
#include "scenario/build_desktop.h"
#include "scenario/scenario_reader.h"
#include "support/find.h"
#include "windows/call.h"
#include "windows/state.h"

namespace orvane::fuzzing {
namespace {

using simulation::DesktopPlan;
using simulation::InterfaceScript;
using simulation::PlatformState;

constexpr std::uint32_t restoreCleanBackgroundMessage = 0x8146;
constexpr std::uint32_t showToolBoxMessage = 0x8153;
constexpr int greatestWaitMs = 3000;
constexpr int followUpMs = 50;

bool areSame(const simulation::Spelling& one, const simulation::Spelling& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](const auto& left, const auto& right) {
    return left.first == right.first && left.second.words == right.second.words &&
           left.second.suggestions == right.second.suggestions;
  });
}

// The desktops, in the order of their files' names. All know the same languages: the host keeps its
// spell checkers.
const std::vector<DesktopPlan>& worlds() {
  static const std::vector<DesktopPlan> plans = [] {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(ORVANE_FUZZ_WORLDS)) {
      files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    std::vector<DesktopPlan> read;
    for (const std::string& file : files) {
      read.push_back(simulation::readScenarioFile(file).desktop);
      require(
          read.back().faults.empty() && !read.back().windows.empty() && areSame(read.back().spelling, read[0].spelling),
          "a desktop has windows, the languages of the others and no faults");
    }
    require(!read.empty(), "there are desktops");
    return read;
  }();
  return plans;
}

// What the host keeps until its process ends has to outlive the platform that it came from.
void keepSpellCheckers(PlatformState& state) {
  static auto& kept = *new std::vector<std::unique_ptr<simulation::ComShell>>;
  for (auto& object : state.comObjects) {
    if (dynamic_cast<ISpellChecker*>(object.get()) != nullptr ||
        dynamic_cast<ISpellCheckerFactory*>(object.get()) != nullptr) {
      kept.push_back(std::move(object));
    }
  }
}

class Session : public InterfaceScript {
 public:
  Session(const DesktopPlan& plan, const Input& input)
      : plan_(plan), input_(input), desktop_(*new simulation::Clock, books_), platform_(desktop_, this, {}) {
    simulation::buildDesktop(desktop_, plan_);
    settledProviders().clear();
    cleanBackgroundState() = {};
    noteActivation(nullptr, WA_ACTIVE, reinterpret_cast<LPARAM>(windowAt(0)));
  }

  void run() {
    takeErrorText();
    const int exitCode = platform_.run();
    PlatformState& state = *simulation::currentState();
    while (state.runningThreads > 0) {
      desktop_.clock().sleep(followUpMs);
    }
    keepSpellCheckers(state);
    promises_.checkEnd(exitCode);
  }

  bool performStep() override {
    if (!std::exchange(hasBegun_, true)) {
      begin();
    }
    if (next_ == input_.records.size()) {
      return false;
    }
    perform(input_.records[next_++]);
    return true;
  }

  void stepsDone() override {}

  std::optional<simulation::Bytes> messageFromHost(const std::string& channel, const Bytes& message) override {
    promises_.checkMessageOfHost(channel, message);
    return simulation::Bytes{0, 0};
  }

 private:
  void begin() {
    if (plan_.setsForeground) {
      desktop_.moveForeground(plan_.foreground ? desktop_.windowById(*plan_.foreground) : nullptr);
    }
    desktop_.startRules();
  }

  HWND windowAt(std::size_t place) const {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(desktop_.handleOfId(plan_.windows[place].id)));
  }

  void perform(const Record& record) {
    switch (record.kind) {
      case RecordKind::browserMessage:
        return send("orvane/browser", record.content);
      case RecordKind::windowMessage:
        return send("orvane/window", record.content);
      case RecordKind::wait:
        return desktop_.clock().sleep((record.byte(0) + 256 * record.byte(1)) % greatestWaitMs);
      case RecordKind::bringForward:
        return bringForward(record.byte(0) % (plan_.windows.size() + 1));
      case RecordKind::chooseMenu:
        desktop_.nextMenuChoice = record.byte(0) == 0 ? std::nullopt : std::optional<int>(record.byte(0));
        return;
      case RecordKind::post:
        return post(record.byte(0) % 2 == 0 ? showToolBoxMessage : restoreCleanBackgroundMessage);
    }
  }

  void send(const std::string& channel, const Bytes& message) {
    promises_.beforeCall(channel, message);
    promises_.checkReply(platform_.sendToHost(channel, message));
  }

  void bringForward(std::size_t place) {
    simulation::Window* const window =
        place < plan_.windows.size() ? desktop_.windowById(plan_.windows[place].id) : nullptr;
    if (window != nullptr) {
      window->minimized = false;
    }
    desktop_.moveForeground(window);
  }

  void post(std::uint32_t message) {
    if (simulation::Window* const window = desktop_.windowById("main")) {
      platform_.post(*window, message, 0, 0);
    }
  }

  const DesktopPlan& plan_;
  const Input& input_;
  simulation::Books books_;
  simulation::Desktop desktop_;
  simulation::Platform platform_;
  Promises promises_{desktop_};
  bool hasBegun_ = false;
  std::size_t next_ = 0;
};

}  // namespace

void runSession(const Input& input) {
  const DesktopPlan& plan = worlds()[input.world % worlds().size()];
  Session(plan, input).run();
}

}  // namespace orvane::fuzzing
