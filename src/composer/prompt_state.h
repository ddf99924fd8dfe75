#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// Observations of a composer and of a page at work. Each answers by a bool and a text for the
// trace; none retries beyond its own checks.

// True when the control that has the focus holds text. `valueExposed` tells whether it has a Value
// pattern at all. Both out parameters may be null.
bool readPromptState(std::string* message, bool* valueExposed);

// True when text was seen in the focused control three times in a row, 180 ms apart, within
// `highestChecks`. `valueExposed`, which may be null, is set from the first check that saw a pattern.
bool waitForPastedPromptStable(int highestChecks, std::string& message, bool* valueExposed);

// True when `verifyPromptBox` held three times in a row, 250 ms apart, within `highestChecks`.
bool waitForPromptBoxStable(HWND window, const std::string& providerName, int highestChecks, std::string& message);

// True when the page shows a control that exists only while a provider answers. `message` may be
// null and is left alone when the window could not be searched.
bool isRespondingControlVisible(HWND window, std::string* message);

}  // namespace orvane
