#pragma once

#include <windows.h>

namespace orvane {

enum class Restack {
  always,
  whenOwnProgramIsInFront,  // another window of the program, and the one to place isn't iconic
};

// Shows `window` behind the lowest of the program's own windows that count: visible, not iconic, not
// topmost, no panel. Where `restack` isn't met it does nothing and says true. False when SetWindowPos
// fails.
bool placeBehindOwnWindows(HWND window, Restack restack);

}  // namespace orvane
