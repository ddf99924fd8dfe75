#include "desktop/clean_background_state.h"

namespace orvane {

CleanBackgroundState& cleanBackgroundState() {
  static CleanBackgroundState state;
  return state;
}

}  // namespace orvane
