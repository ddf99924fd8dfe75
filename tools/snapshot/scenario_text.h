#pragma once

#include <cstddef>
#include <string>

#include "snapshot/captured_desktop.h"
#include "snapshot/provider_calls.h"

namespace orvane::snapshot {

struct ScenarioText {
  std::string json;  // ends with a line break
  // Tab items that say they are selected, beyond the window's first and in its page: a scenario's
  // window has one selected tab.
  std::size_t droppedSelections = 0;
};

// The desktop as a scenario. Its steps activate `provider`'s tab and deliver a prompt of its own;
// without a provider (null) it has none. `provider`'s other known domain is asked for when a window
// stands on that one.
ScenarioText writeScenario(const CapturedDesktop& desktop, const ProviderCall* provider);

}  // namespace orvane::snapshot
