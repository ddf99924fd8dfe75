#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// Finds the provider's composer in a browser window, gives it the keyboard focus and examines what
// really has the focus then. Types nothing and clicks nothing. `providerName` is UTF-8 in any case
// of letters. True when the focus is verified to stand in the composer; `message`, which may be
// null, is written on every way out.
bool verifyPromptBox(HWND window, const std::string& providerName, std::string* message);

}  // namespace orvane
