#pragma once

#include <windows.h>

#include "composer/uia_operations.h"

namespace orvane {

// What a search for a window's tab items gave.
struct TabItemSearch {
  bool hasCondition = false;  // the condition of the search could be made
  HRESULT result = S_OK;      // of the last call: making the condition, then FindAll
  UiaElementArray items;      // empty when a call failed, or succeeded with null
};

// All tab items below `root`, those that a page shows included, in the order of FindAll.
TabItemSearch findTabItems(const UiaSession& session, const UiaElement& root);

}  // namespace orvane
