#pragma once

#include <string>

#include "activation/remembered_target.h"
#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// What a fast route hands back about the tab that it brought forward.
struct ActivatedTarget {
  TabCandidate tab;
  std::wstring resolvedTitle;
  std::wstring resolvedAutomationId;
};

// Looks only at the window where the interface last found the provider: selects the remembered
// tab, proves it by its address and brings it forward. Selects nothing unless it knows which tab to
// go back to, and goes back when the proof fails. True: done, and `target` is written. False: the
// caller's full search follows, and the trace tells why.
bool activateWarmTarget(const UiaSession& session, const std::wstring& name, const RememberedTarget& remembered,
                        TraceLog& trace, ActivatedTarget& target);

}  // namespace orvane
