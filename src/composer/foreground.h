#pragma once

#include <windows.h>

#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// Asking for the foreground doesn't mean getting it: both return what GetForegroundWindow says
// afterwards, never what a call that asked returned.

// The strong form: up to three passes. True when the window is the foreground window.
bool forceForeground(HWND window);

// The short form: one pass.
bool bringForward(HWND window);

// Starts a thread that brings the window forward once more after 180 ms, and again 270 ms later if
// it isn't in front by then. It holds the handle and nothing else.
void scheduleForegroundFollowUp(HWND window);

// True when `window` is the one that the call's arguments mean: by "expectedWindowHandle" when
// that is there, else by "patterns" and "name" in its title. `arguments` and `message` may be null.
bool verifyForeground(HWND window, const EncodableMap* arguments, std::string* message);

}  // namespace orvane
