#include "browser_channel/settled_providers.h"

namespace orvane {

SettledProviders& settledProviders() {
  static SettledProviders state;
  return state;
}

}  // namespace orvane
