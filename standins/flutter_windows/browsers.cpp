#include "flutter_windows/browsers.h"

#include <algorithm>
#include <stdexcept>

#include "common/link_window.h"

namespace orvane::standins {
namespace {

DWORD processOf(HWND window) {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  return process;
}

Json checked(Json answer, const Json& request) {
  if (answer.contains("error")) {
    throw std::runtime_error(request.at("op").get<std::string>() + ": " + answer.at("error").get<std::string>());
  }
  return answer;
}

std::runtime_error silence(const Json& request) {
  return std::runtime_error("a browser doesn't answer to \"" + request.at("op").get<std::string>() + "\"");
}

}  // namespace

void Browsers::meet(const simulation::Scenario& scenario) {
  for (const simulation::WindowPlan& plan : scenario.desktop.windows) {
    const DWORD process = processOf(stage_.window(plan.id));
    if (std::find(processes_.begin(), processes_.end(), process) == processes_.end()) processes_.push_back(process);
  }
}

Json Browsers::ask(const std::string& windowId, const Json& request) {
  std::optional<Json> answer = askOwner(stage_.window(windowId), request);
  if (!answer) throw silence(request);
  return checked(std::move(*answer), request);
}

Json Browsers::askFirst(const Json& request) { return askProcess(processes_.front(), request); }

std::vector<Json> Browsers::askAll(const Json& request) {
  std::vector<Json> answers;
  for (const DWORD process : processes_) answers.push_back(askProcess(process, request));
  return answers;
}

void Browsers::quit() noexcept {
  for (const DWORD process : processes_) {
    try {
      askProcess(process, {{"op", "quit"}});
    } catch (const std::exception&) {
      // The others are asked all the same.
    }
  }
}

Json Browsers::askProcess(DWORD process, const Json& request) {
  // A process outlives the scenario's windows of it.
  for (const HWND window : linkWindowsOf(process)) {
    if (std::optional<Json> answer = askOwner(window, request)) return checked(std::move(*answer), request);
  }
  throw silence(request);
}

}  // namespace orvane::standins
