#include "browser_channel/settled_providers.h"

namespace orvane {

std::set<std::wstring>& settledProviders() {
  static std::set<std::wstring> names;
  return names;
}

}  // namespace orvane
