#pragma once

#include <windows.h>

#include <string>

#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// Finds the live tab that a candidate stands for now, selects it and reads back that it is
// selected. `resolvedTitle` and `resolvedAutomationId` receive what the chosen tab shows, before it
// is selected; they and `trace` may be null. Negative on failure: E_INVALIDARG, with no step written,
// without a session or when the window is gone; the error of the call that failed, or E_FAIL when a
// call of the search succeeded with null; UIA_E_ELEMENTNOTAVAILABLE when no tab could be resolved or
// the selection had no effect.
HRESULT selectResolvedTab(const UiaSession& session, const TabCandidate& candidate, std::wstring* resolvedTitle,
                          std::wstring* resolvedAutomationId, TraceLog* trace);

// Goes back to the tab that was selected before, and writes the step `stepName` about it. Returns and
// resolves as `selectResolvedTab`.
HRESULT restoreTab(const UiaSession& session, const TabCandidate& original, std::wstring& resolvedTitle,
                   std::wstring& resolvedAutomationId, const char* stepName, TraceLog& trace);

// Selects a tab item by its SelectionItem pattern, and then by Invoke, or by the legacy default action
// where there is no Invoke. Negative on failure: E_POINTER without an element, E_NOINTERFACE without
// the SelectionItem pattern, else the error of the call that failed.
HRESULT selectTabElement(const UiaElement& tabItem);

// True when the tab item's SelectionItem pattern says that it is selected.
bool isTabElementSelected(const UiaElement& tabItem);

}  // namespace orvane
