#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// A page's own Send control: a button known by its name alone, the last in the tree first.

// True when an enabled Send control is on screen; `name`, which may be null, receives its name as
// exposed. False without a text, whatever failed.
bool findEnabledSendButton(HWND window, std::wstring* name);

// Looks up to `highestChecks` times, 250 ms apart, until a Send control of one and the same name
// was seen `requiredSightings` times in a row. Always writes `message`.
bool waitForStableSendButton(HWND window, int highestChecks, std::string& message, int requiredSightings);

// Presses the Send control by UI Automation's Invoke. True when one call reported success, after
// which nothing more is pressed. `providerName` is UTF-8 in any case of letters and decides which names are
// pressed: the wait takes names for every provider that only Perplexity's press takes. `message` may be null
// and is written on every way out.
bool invokeSendButton(HWND window, const std::string& providerName, std::string* message);

}  // namespace orvane
