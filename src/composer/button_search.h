#pragma once

#include <windows.h>

#include "composer/uia_operations.h"

namespace orvane {

// How far a search for the buttons of a window came.
enum class ButtonSearchResult {
  found,
  noAutomation,
  noRoot,
  noCondition,
  noButtons,  // the search itself failed or gave no array
};

// All buttons below the window's root, in tree order. The window has to be checked by the caller.
ButtonSearchResult findButtons(const UiaSession& session, HWND window, UiaElementArray& buttons);

// What makes a button one that can be pressed or that tells something; reads both facts.
bool isEnabledOnScreen(const UiaElement& button);

}  // namespace orvane
