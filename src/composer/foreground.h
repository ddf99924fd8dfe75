#pragma once

#include <windows.h>

#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// Asking for the foreground doesn't mean getting it: both return what GetForegroundWindow says
// afterwards, never what a call that asked returned. A null or dead handle gives false.

// The strong form: up to three passes. True when the window is the foreground window. Blocks for up to
// 600 ms, and 60 ms more for each pass that finds it minimized.
bool forceForeground(HWND window);

// The short form: one pass. Blocks for 120 ms.
bool bringForward(HWND window);

// Starts a thread that brings the window forward once more after 180 ms, and again 270 ms later if
// it isn't in front by then. It holds the handle and nothing else.
void scheduleForegroundFollowUp(HWND window);

// True when `window` is the one that the call's arguments mean: by "expectedWindowHandle" when
// that is there, 0 too, else by "patterns" and "name", one of which has to stand in its title
// (GetWindowTextW), both lower-cased. `arguments` and `message` may be null; `message` is written on every way
// out.
bool verifyForeground(HWND window, const EncodableMap* arguments, std::string* message);

}  // namespace orvane
