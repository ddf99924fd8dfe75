#pragma once

#include <windows.h>

#include <optional>
#include <string>

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

// The button at `index`, as the search gave it, and its name as exposed (get_CurrentName); nullopt when
// either can't be read or the name is null.
std::optional<std::wstring> readNamedButton(const UiaElementArray& buttons, int index, UiaElement& button);

// What makes a button one that can be pressed or that tells something; reads both facts.
bool isEnabledOnScreen(const UiaElement& button);

}  // namespace orvane
