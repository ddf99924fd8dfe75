#pragma once

#include <windows.h>

namespace orvane {

// Posted to the panel, also by another instance of the program: reopen and place it.
inline constexpr UINT restoreCleanBackgroundMessage = 0x8146;

// Creates the panel, hidden, at `rect` unless there is one. False when a call fails: GetLastError says why.
bool ensureCleanBackgroundWindow(HWND owner, const RECT& rect);

// The panel goes with the main window that it belongs to; another window's end leaves it.
void destroyCleanBackgroundOf(HWND owner);

}  // namespace orvane
