#pragma once

#include <vector>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// What a selected tab has to show before its window is brought forward: no provider passes on a page
// about its company, ChatGPT and Claude are looked at more closely, ChatGPT after a pause of 180 ms.
// An address that can't be read counts as empty. When it fails, the tab of the window that was
// selected before, as far as the inventory knows one, is selected again. Each verdict and what became
// of the way back is a step of `trace`.
bool proveFinalIdentity(const UiaSession& session, const ProviderKey& key, const TabCandidate& target,
                        const std::vector<TabCandidate>& inventory, TraceLog& trace);

}  // namespace orvane
