#pragma once

#include <cstddef>

#include "snapshot/captured_desktop.h"

namespace orvane::snapshot {

// How many texts stand-ins have replaced; those that stayed as they were don't count.
struct HiddenTexts {
  std::size_t titles = 0;
  std::size_t addresses = 0;  // address bars
  std::size_t values = 0;     // of other fields
  std::size_t names = 0;      // names, ids and classes of controls
  // Windows whose titles' stand-ins don't stand to each other as the titles do.
  std::size_t windowsNotTold = 0;
};

// Puts stand-ins in the place of all texts of pages, titles and addresses. What browsers call their
// windows' classes and tab items' ids stays.
HiddenTexts hideTexts(CapturedDesktop& desktop);

}  // namespace orvane::snapshot
