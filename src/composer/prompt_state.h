#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// Observations of a composer and of a page at work. Each answers by a bool and a text for the
// trace; none retries beyond its own checks.

// True when the control that has the focus (GetFocusedElement) holds text by its Value pattern.
// `valueExposed` tells whether it has such a pattern at all. Both out parameters may be null and are written
// on every way out.
bool readPromptState(std::string* message, bool* valueExposed);

// True when text was seen in the focused control three times in a row, 180 ms apart, within
// `highestChecks`. `valueExposed` is false at first and true from the first check that saw a pattern; without
// it a text that didn't hold is told in the words of one that couldn't be seen. Always writes `message`.
bool waitForPastedPromptStable(int highestChecks, std::string& message, bool* valueExposed);

// True when `verifyPromptBox` held three times in a row, 250 ms apart, within `highestChecks`. Always writes
// `message`.
bool waitForPromptBoxStable(HWND window, const std::string& providerName, int highestChecks, std::string& message);

// True when the page shows a control that exists only while a provider answers. `message` may be
// null and is left alone when the window could not be searched.
bool isRespondingControlVisible(HWND window, std::string* message);

}  // namespace orvane
