#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "common/link.h"
#include "flutter_windows/stage.h"

namespace orvane::standins {

// The processes that own the scenario's windows. A question that isn't answered, or is answered by
// an error, throws std::runtime_error.
class Browsers {
 public:
  explicit Browsers(Stage& stage) : stage_(stage) {}

  // All of the scenario's windows must be there.
  void meet(const simulation::Scenario& scenario);
  bool areThere() const { return !processes_.empty(); }

  Json ask(const std::string& windowId, const Json& request);
  Json askFirst(const Json& request);
  std::vector<Json> askAll(const Json& request);
  // Ends the processes; one that doesn't answer is left.
  void quit() noexcept;

 private:
  Json askProcess(DWORD process, const Json& request);

  Stage& stage_;
  std::vector<DWORD> processes_;  // in the order of their first windows
};

}  // namespace orvane::standins
