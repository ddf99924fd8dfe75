#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// Reaches a ChatGPT tab through Chrome's own Search tabs box: the only place in activation where
// keys are sent. Each stage has one try and proves its ground before it acts. True when a Chrome
// window on a ChatGPT host is in front; `window` and `selectedTitle` are written on true only.
bool runBrowserAssist(const UiaSession& session, const std::vector<TabCandidate>& inventory, TraceLog& trace,
                      HWND& window, std::wstring& selectedTitle);

// The visible Chrome window to use: the foreground one, else that with the most tabs of the
// inventory, of equal ones the lowest handle. Null when there is none.
HWND chooseChromeWindow(const std::vector<TabCandidate>& inventory);

// The name of the window's first tab item that says it is selected; empty for none and on failure.
std::wstring selectedTabName(const UiaSession& session, HWND window);

// Opens the box: each event in its own SendInput call, and no key left down. True when both events
// of the letter were inserted.
bool sendCtrlShiftA();

}  // namespace orvane
