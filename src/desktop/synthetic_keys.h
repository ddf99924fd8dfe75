#pragma once

#include <windows.h>

#include <span>
#include <string_view>

namespace orvane {

// Presses the keys in their order and lets them go in the reverse one, in a single SendInput call.
// True when every event was inserted; false for no keys.
bool sendKeyChord(std::span<const WORD> virtualKeys);

// Presses one of Windows' own hot keys, named as "Win+Shift+R"; goes to whatever has the focus. False
// for a name outside the table, and when SendInput inserted fewer events than it was given.
bool sendWindowsHotKey(std::string_view keys);

// Brings the window that the user worked in last to the front and types Shift+Enter there; `mainWindow`
// isn't given the foreground back. False when there is no such window any more or it didn't come to
// the front: no key is sent then. False too when SendInput inserted fewer events. Waits 150 ms.
bool sendNewLineToPreviousWindow(HWND mainWindow);

}  // namespace orvane
