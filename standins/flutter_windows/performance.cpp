#include "flutter_windows/performance.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <utility>

#include "common/scenario_of_run.h"
#include "common/wide_text.h"
#include "flutter_windows/host_person.h"
#include "flutter_windows/place_hook.h"
#include "flutter_windows/view_window.h"
#include "world/faults.h"

namespace orvane::standins {
namespace {

constexpr std::int64_t longestAssemblyMs = 20'000;
constexpr std::int64_t settlingMs = 100;
constexpr std::int64_t longestHoldingMs = 15'000;
constexpr UINT exitCodeOfMisuse = 70;

Performance* onlyPerformance = nullptr;

bool isHeld() { return environmentText(L"ORVANE_HOLD") == L"1"; }

std::filesystem::path signalFile() { return {environmentText(L"ORVANE_SIGNAL")}; }

// Tells whoever waits for the file that everything stands now. Who has seen enough takes it away.
void giveSignal() { std::ofstream(signalFile()) << "ready\n"; }

bool isSignalTaken() {
  std::error_code unreadable;
  return !std::filesystem::exists(signalFile(), unreadable);
}

// For a run of so many calls that what is kept of them would be most of the process's memory.
std::size_t keptReplies() {
  static const std::wstring text = environmentText(L"ORVANE_KEPT_REPLIES");
  return text.empty() ? std::numeric_limits<std::size_t>::max() : std::stoul(text);
}

std::string joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "\"" : ", \"") + name + '"';
  return list;
}

// One line of the view: the call and what came of it.
std::wstring lineFor(const simulation::Json& reply) {
  const simulation::Json& method = reply.at("method");
  const simulation::Json& value = reply.at("value");
  std::string line = method.is_string() ? method.get<std::string>() : "message";
  line += ": " + reply.at("kind").get<std::string>();
  if (value.is_object() && value.contains("success")) line += ", success " + value.at("success").dump();
  if (value.is_object() && value.contains("message") && value.at("message").is_string()) {
    line += ", " + value.at("message").get<std::string>();
  }
  return wideFromUtf8(line);
}

// A use of the library that its contract forbids: says which, leaves the report and ends the process.
void endAfterMisuse(std::string_view call, std::string_view what) {
  const std::string misuse = std::string(call) + ": " + std::string(what);
  std::fprintf(stderr, "flutter_windows: %s\n", misuse.c_str());
  std::fflush(stderr);
  if (onlyPerformance != nullptr) {
    onlyPerformance->noteProblem(misuse);
    onlyPerformance->writeReport();
  }
  ::TerminateProcess(::GetCurrentProcess(), exitCodeOfMisuse);
}

}  // namespace

Performance& startPerformance(simulation::Scenario scenario) {
  delete std::exchange(onlyPerformance, nullptr);
  onlyPerformance = new Performance(std::move(scenario));
  simulation::setStopHandler(&endAfterMisuse);
  return *onlyPerformance;
}

Performance* performance() { return onlyPerformance; }

simulation::EngineRoom& engineRoom() {
  // Kept beyond the end of the process's statics: the host may still hold handles then.
  static auto& room = *new simulation::EngineRoom;
  return room;
}

Performance::Performance(simulation::Scenario scenario)
    : scenario_(std::move(scenario)), stage_(scenario_), browsers_(stage_), steps_(scenario_, stage_, browsers_) {}

void Performance::openView(HWND view, int width, int height) {
  view_ = view;
  engine_.width = width;
  engine_.height = height;
  stage_.setView(view);
  showProgress();
}

simulation::Bytes Performance::messageFromHost(const std::string& channel, const simulation::Bytes& message) {
  steps_.records().addCallFromHost(channel, message, steps_.nowMs());
  return simulation::emptySuccess();
}

void Performance::takeTurn() {
  if (phaseBeganTick_ == 0) phaseBeganTick_ = ::GetTickCount64();
  stage_.nameHostWindows();
  steps_.watchForeground();
  try {
    switch (phase_) {
      case Phase::assembling:
        return assemble();
      case Phase::hostInFront:
        if (!hasLasted(Steps::foregroundSettlingMs) || !steps_.hasSettled()) return;
        steps_.putScenarioInFront();
        return enter(Phase::scenarioInFront);
      case Phase::scenarioInFront:
        if (!hasLasted(Steps::foregroundSettlingMs) || !steps_.hasSettled()) return;
        steps_.start();
        enter(Phase::performing);
        return performStep();
      case Phase::performing:
        return performStep();
      case Phase::settling:
        return settle();
      case Phase::holding:
        return hold();
      case Phase::over:
        return;
    }
  } catch (const std::exception& failure) {
    noteProblem(failure.what());
    closeHost();
  }
}

void Performance::enter(Phase phase) {
  phase_ = phase;
  phaseBeganTick_ = ::GetTickCount64();
}

bool Performance::hasLasted(std::int64_t ms) const {
  return ::GetTickCount64() - phaseBeganTick_ >= static_cast<ULONGLONG>(ms);
}

void Performance::assemble() {
  const std::vector<std::string> missing = stage_.missingWindows();
  if (!missing.empty()) {
    if (!hasLasted(longestAssemblyMs)) return;
    throw std::runtime_error("windows that never appeared: " + joined(missing));
  }
  browsers_.meet(scenario_);
  steps_.bringUpHost();
  enter(Phase::hostInFront);
}

void Performance::performStep() {
  const bool hasPerformed = steps_.performNext();
  steps_.records().keepNewest(keptReplies());
  if (hasPerformed) return showProgress();
  if (steps_.areDone()) enter(Phase::settling);
}

void Performance::settle() {
  if (!hasLasted(settlingMs)) return;
  takeEndState(nullptr);
  if (!isHeld()) return closeHost();
  giveSignal();
  enter(Phase::holding);
}

void Performance::hold() {
  if (isSignalTaken() || hasLasted(longestHoldingMs)) closeHost();
}

void Performance::takeEndState(HWND dyingWindow) {
  if (!end_) end_ = describeEnd(browsers_, dyingWindow);
}

void Performance::closeHost() {
  phase_ = Phase::over;
  if (const HWND window = stage_.windowIfAny("main")) closeWindow(window);
}

// A host that ended by itself is looked at now: the steps that are left aren't done.
void Performance::finish(HWND dyingWindow) {
  phase_ = Phase::over;
  removePlaceHook();
  try {
    takeEndState(dyingWindow);
  } catch (const std::exception& failure) {
    noteProblem(failure.what());
  }
  browsers_.quit();
  if (end_) describeHeldClipboard(*end_);
  writeReport();
}

void Performance::noteProblem(const std::string& problem) {
  if (!problem_) problem_ = problem;
}

void Performance::showProgress() {
  std::vector<std::wstring> lines{wideFromUtf8(scenario_.name)};
  for (const simulation::Json& reply : steps_.records().replies()) lines.push_back(lineFor(reply));
  showInView(view_, std::move(lines));
}

simulation::Json Performance::describeEngine() const {
  simulation::Json json;
  json["assetsPath"] = engine_.assetsPath;
  json["icuDataPath"] = engine_.icuDataPath;
  json["aotLibraryPath"] = engine_.aotLibraryPath;
  json["entryPointArguments"] = simulation::Json::array();
  for (const std::string& argument : engine_.entryPointArguments) {
    json["entryPointArguments"].push_back(simulation::validUtf8(argument));
  }
  json["size"] = {engine_.width, engine_.height};
  json["plugins"] = engine_.plugins;
  return json;
}

void Performance::writeReport() {
  const std::wstring path = environmentText(L"ORVANE_REPORT");
  if (path.empty() || std::exchange(isReportWritten_, true)) return;
  simulation::Json report;
  report["name"] = scenario_.name;
  if (problem_) report["problem"] = *problem_;
  report["realMs"] = steps_.nowMs();
  report["replies"] = steps_.records().replies();
  report["toInterface"] = steps_.records().callsFromHost();
  report["input"] = end_ ? end_->input : simulation::Json::array();
  report["engine"] = describeEngine();
  report["desktop"] = end_ ? end_->desktop : simulation::Json(nullptr);
  report["live"] = describeLiveObjects();
  std::ofstream(std::filesystem::path(path), std::ios::binary) << simulation::writeJson(report) << '\n';
}

}  // namespace orvane::standins
