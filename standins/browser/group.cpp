#include "browser/group.h"

#include <algorithm>
#include <cstddef>

namespace orvane::standins {
namespace {

std::string processKey(const simulation::WindowPlan& window) {
  return window.pid ? "pid " + std::to_string(*window.pid) : "image " + window.process;
}

}  // namespace

std::vector<std::string> windowsOfGroup(const std::vector<simulation::WindowPlan>& windows, int number) {
  std::vector<std::string> keys;
  for (const simulation::WindowPlan& window : windows) {
    const std::string key = processKey(window);
    if (std::find(keys.begin(), keys.end(), key) == keys.end()) keys.push_back(key);
  }
  std::vector<std::string> ids;
  if (number < 0 || static_cast<std::size_t>(number) >= keys.size()) return ids;
  for (const simulation::WindowPlan& window : windows) {
    if (processKey(window) == keys[static_cast<std::size_t>(number)]) ids.push_back(window.id);
  }
  return ids;
}

}  // namespace orvane::standins
