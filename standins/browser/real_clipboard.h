#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "world/clipboard.h"

namespace orvane::standins {

// The platform's clipboard as a program of the desktop uses it. `owner` is a window of the process.

// What would be pasted; nullopt: no text, or another program has the clipboard open.
std::optional<simulation::Text> readClipboardText(HWND owner);

// Replaces all that stands there by the forms of `content`. Where another program has it open it is
// asked for a while, then left.
void writeClipboard(HWND owner, const simulation::ClipboardContent& content);

// The id of the window that has the clipboard open; nullopt: none of the scenario.
std::optional<std::string> clipboardHolder();

// Keeps it open for a window of this process, so that nobody else can open it, until it is let go.
void holdClipboard(HWND window);
void letClipboardGo();

// The same asked of the process of another window. It happens when that process comes to it.
void askToHoldClipboard(HWND window, bool hold);
UINT holdClipboardMessage();  // to a window: wParam 1: hold, 0: let go

}  // namespace orvane::standins
