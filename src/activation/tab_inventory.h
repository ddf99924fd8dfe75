#pragma once

#include <windows.h>

#include <vector>

#include "activation/discovery_types.h"
#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// Up to three passes, the later ones only after one without a candidate, and the steps that count
// what the last pass saw. Only reads: no tab is selected and no window raised.
DiscoveryPass runDiscovery(const DiscoveryRequest& request);

// One pass: the inventory, and the decision about each of its tabs.
DiscoveryPass runDiscoveryPass(const DiscoveryRequest& request);

// The callback of EnumWindows; `pass` is a DiscoveryPass pointer. Always TRUE: no window's failure
// ends the walk.
BOOL CALLBACK enumBrowserWindow(HWND window, LPARAM pass);

// The tabs of one known window, without address, proof or the sign of the window's title; a tab
// without a name is left out, and its index with it. False without a session and when the window is
// gone, both of which leave `tabs` as it was; false with `tabs` emptied when the window belongs to no
// supported browser or can't be searched. An empty list is a success. `trace` may be null.
bool inspectWindowTabs(const UiaSession& session, HWND window, std::vector<TabCandidate>& tabs, TraceLog* trace);

}  // namespace orvane
