#include "world/faults.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "world/desktop.h"

namespace orvane::simulation {
namespace {

// A tab item goes by its tab's title.
bool isNamed(const Element& element, const std::string& name) {
  if (element.isTabItem && element.tab != nullptr) return utf8FromText(element.tab->title) == name;
  return !element.facts.id.empty() && element.facts.id == name;
}

bool concerns(const Fault& fault, const Window* window, const Element* element) {
  if (fault.element && (element == nullptr || !isNamed(*element, *fault.element))) return false;
  const Window* about = window == nullptr && element != nullptr ? element->window : window;
  return !fault.window || (about != nullptr && about->id == *fault.window);
}

StopHandler& stopHandler() {
  static StopHandler handler = nullptr;
  return handler;
}

}  // namespace

void Books::setFaults(std::vector<Fault> faults) { faults_ = std::move(faults); }

std::optional<FaultResult> Books::enter(std::string_view call, const Window* window, const Element* element) {
  auto known = calls_.find(call);
  if (known == calls_.end()) known = calls_.emplace(std::string(call), 0).first;
  ++known->second;
  if (watcher_) watcher_(call, window, element);
  std::optional<FaultResult> result;
  for (Fault& fault : faults_) {
    if (fault.call != call || !concerns(fault, window, element)) continue;
    ++fault.seen;
    const bool isDue = fault.seen >= fault.nth && fault.seen - fault.nth < fault.times;
    if (isDue && !result) result = fault.result;
  }
  return result;
}

void Books::hold(std::string_view kind, int change) {
  auto known = held_.find(kind);
  if (known == held_.end()) known = held_.emplace(std::string(kind), 0).first;
  known->second += change;
  if (known->second < 0) stopRun(kind, "given back more often than taken");
}

void setStopHandler(StopHandler handler) { stopHandler() = handler; }

void stopRun(std::string_view call, std::string_view what) {
  if (stopHandler() != nullptr) stopHandler()(call, what);
  std::fflush(stdout);
  std::fprintf(stderr, "simulation: %.*s: %.*s\n", static_cast<int>(call.size()), call.data(),
               static_cast<int>(what.size()), what.data());
  std::fflush(stderr);
  // Without static destructors: other threads of the run may still stand anywhere.
  std::_Exit(3);
}

}  // namespace orvane::simulation
