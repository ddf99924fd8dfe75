#pragma once

#include <windows.h>

#include <string>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// Finds the live tab that a candidate stands for now, selects it and reads back that it is
// selected. `resolvedTitle` and `resolvedAutomationId` receive what the chosen tab shows, before it
// is selected; they and `trace` may be null. Negative on failure: the error of the call that
// failed, or UIA_E_ELEMENTNOTAVAILABLE when no tab could be resolved or the selection had no effect.
HRESULT selectResolvedTab(const UiaSession& session, const TabCandidate& candidate, std::wstring* resolvedTitle,
                          std::wstring* resolvedAutomationId, TraceLog* trace);

// Selects a tab item by all patterns that it has. Negative on failure.
HRESULT selectTabElement(const UiaElement& tabItem);

// True when the tab item's SelectionItem pattern says that it is selected.
bool isTabElementSelected(const UiaElement& tabItem);

}  // namespace orvane
