#include "flutter_windows/stage.h"

#include <stdexcept>

#include "common/link.h"

namespace orvane::standins {
namespace {

constexpr const wchar_t* backdropClass = L"Orvane_Clean_Background_RC310";

bool isAliveAs(HWND window, const std::string& id) { return ::IsWindow(window) != FALSE && nameOfWindow(window) == id; }

}  // namespace

void Stage::nameHostWindows() {
  nameMain();
  nameBackdrop();
}

void Stage::nameMain() {
  const HWND root = ::GetAncestor(view_, GA_ROOT);
  if (root == nullptr || root == view_ || nameOfWindow(root)) return;
  nameWindow(root, "main");
  known_["main"] = root;
}

void Stage::nameBackdrop() {
  HWND window = nullptr;
  while ((window = ::FindWindowExW(nullptr, window, backdropClass, nullptr)) != nullptr) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != ::GetCurrentProcessId() || nameOfWindow(window)) continue;
    nameWindow(window, "backdrop");
    known_["backdrop"] = window;
  }
}

std::vector<std::string> Stage::missingWindows() {
  std::vector<std::string> missing;
  for (const simulation::WindowPlan& plan : scenario_.desktop.windows) {
    if (windowIfAny(plan.id) == nullptr) missing.push_back(plan.id);
  }
  return missing;
}

std::vector<HWND> Stage::wantedOrder() {
  std::vector<HWND> order;
  for (const bool topmost : {true, false}) {
    if (!topmost) order.push_back(window("main"));
    for (const simulation::WindowPlan& plan : scenario_.desktop.windows) {
      if (plan.topmost == topmost) order.push_back(window(plan.id));
    }
  }
  return order;
}

HWND Stage::window(const std::string& id) {
  const HWND found = windowIfAny(id);
  if (found == nullptr) throw std::runtime_error("a step acts on the window \"" + id + "\", which isn't there");
  return found;
}

HWND Stage::windowIfAny(const std::string& id) {
  const auto known = known_.find(id);
  if (known != known_.end() && isAliveAs(known->second, id)) return known->second;
  const HWND found = findNamedWindow(id);
  if (found != nullptr) known_[id] = found;
  return found;
}

std::uint64_t Stage::handleOf(const std::string& id) {
  if (const HWND found = windowIfAny(id)) return reinterpret_cast<std::uint64_t>(found);
  const auto known = known_.find(id);
  return known == known_.end() ? 0 : reinterpret_cast<std::uint64_t>(known->second);
}

}  // namespace orvane::standins
