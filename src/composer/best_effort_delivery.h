#pragma once

#include <windows.h>

#include <string>

#include "browser_channel/trace_log.h"
#include "provider_identity/provider_tables.h"

namespace orvane {

// The narrow route of the providers without one of their own: the one composer that names itself
// on the exact host, empty before the paste, holding the exact clipboard text after it, Enter once.
// Stops at the first doubt and repeats nothing that could duplicate a message. True only when the
// composer was seen to clear. Reads the clipboard and leaves it as it is. Blocks for up to about 7.8 s.
bool deliverBestEffort(HWND window, const BestEffortProfile& profile, TraceLog& trace);

// The lower-cased name holds one of the profile's composer words and none that belongs to other fields.
bool isNamedComposer(const BestEffortProfile& profile, const std::wstring& lowerName);

// The window is the foreground window and its address stands on one of the profile's hosts.
bool isForegroundOnExactHost(HWND window, const BestEffortProfile& profile);

}  // namespace orvane
