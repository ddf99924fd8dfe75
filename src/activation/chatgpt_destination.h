#pragma once

#include "activation/remembered_target.h"
#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// Looks only at tabs that are already selected in their windows and whose address proves ChatGPT,
// and brings one such window to the front; switches no tab. True when it is confirmed there, and
// only then is `target` written.
bool activateChatGptDestination(const UiaSession& session, TraceLog& trace, const RememberedTarget& remembered,
                                TabCandidate& target);

}  // namespace orvane
