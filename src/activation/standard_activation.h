#pragma once

#include "embedding/encodable_value.h"

namespace orvane {

// The body of `activateProvider`: finds the provider's tab, selects at most one, proves it, brings
// its window forward and says what was done. The result holds "success" and "logs" always, and
// "browser", "windowHandle", "selectedTitle", "selectedTabIndex" and "selectedAutomationId" when a
// target was chosen. Blocks the calling thread throughout.
EncodableMap activateProvider(const EncodableMap& arguments);

}  // namespace orvane
