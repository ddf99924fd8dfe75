#include "activation/tab_selection.h"

#include "activation/tab_items.h"
#include "provider_identity/text_rules.h"
#include "provider_identity/title_rules.h"

namespace orvane {
namespace {

constexpr DWORD beforeReadBackMs = 100;

struct LiveTab {
  UiaElement element;
  std::wstring name;
  std::wstring automationId;
};

// What the enumeration found for one candidate.
struct LiveTabs {
  LiveTab indexTab;
  LiveTab titleTab;  // the last one whose title matches
  int titleMatches = 0;
};

// Of a call that gave nothing.
HRESULT errorOf(HRESULT result) { return FAILED(result) ? result : E_FAIL; }

class TabResolution {
 public:
  TabResolution(const UiaSession& session, const TabCandidate& candidate, TraceLog* trace)
      : session_(session), candidate_(candidate), cleanRequestedTitle_(cleanTitle(candidate.title)), trace_(trace) {}

  HRESULT enumerate() {
    UiaElement root;
    if (const HRESULT result = session_.elementFromHandle(candidate_.hwnd, root); !root) {
      return errorOf(result);
    }
    const TabItemSearch search = findTabItems(session_, root);
    if (!search.items) {
      return errorOf(search.result);
    }
    const int length = search.items.length();
    step("Activation target", "requestedIndex=" + std::to_string(candidate_.tabIndex) + "; requestedTitle=\"" +
                                  traceSafeText(candidate_.title) + "\"; requestedAutomationId=\"" +
                                  traceSafeText(candidate_.automationId) +
                                  "\"; enumeratedTabs=" + std::to_string(length));
    for (int index = 0; index < length; ++index) {
      LiveTab tab;
      search.items.elementAt(index, tab.element);
      if (tab.element) {
        consider(index, tab);
      }
    }
    return S_OK;
  }

  // The tab that the candidate stands for; null when none can be told.
  const LiveTab* decide() {
    const bool hasIndexTab = static_cast<bool>(tabs_.indexTab.element);
    if (!candidate_.strictTitle && hasIndexTab && cleanTitle(tabs_.indexTab.name) == cleanRequestedTitle_) {
      return choose("INDEX_AND_TITLE", tabs_.indexTab);
    }
    if (tabs_.titleMatches == 1) {
      return choose("UNIQUE_TITLE", tabs_.titleTab);
    }
    if (!candidate_.strictTitle && hasIndexTab) {
      return choose("INDEX_FALLBACK", tabs_.indexTab);
    }
    step("Activation choice", candidate_.strictTitle
                                  ? "FAILED: strict ChatGPT title no longer identifies one tab"
                                  : "FAILED: recorded tab index no longer exists and title was not unique");
    return nullptr;
  }

  HRESULT selectAndReadBack(const LiveTab& tab) const {
    if (const HRESULT result = selectTabElement(tab.element); FAILED(result)) {
      return result;
    }
    ::Sleep(beforeReadBackMs);
    if (!isTabElementSelected(tab.element)) {
      step("Activation verification", "FAILED: Select returned success but resolved tab is not selected");
      return UIA_E_ELEMENTNOTAVAILABLE;
    }
    step("Activation verification", "PASS: resolved tab is selected");
    return S_OK;
  }

 private:
  void step(const char* name, const std::string& result) const {
    if (trace_ != nullptr) {
      appendTrace(*trace_, name, result);
    }
  }

  void consider(int index, LiveTab& tab) {
    tab.name = elementName(tab.element);
    tab.automationId = elementAutomationId(tab.element);
    const bool isTitleMatch = !cleanRequestedTitle_.empty() && cleanTitle(tab.name) == cleanRequestedTitle_;
    const bool isAutomationMatch = !candidate_.automationId.empty() && tab.automationId == candidate_.automationId;
    const bool isIndexMatch = index == candidate_.tabIndex;
    step("Activation tab", "index=" + std::to_string(index) + "; title=\"" + traceSafeText(tab.name) +
                               "\"; automationId=\"" + traceSafeText(tab.automationId) + "\"; selected=" +
                               yesNo(isTabElementSelected(tab.element)) + "; indexMatch=" + yesNo(isIndexMatch) +
                               "; titleMatch=" + yesNo(isTitleMatch) + "; automationMatch=" + yesNo(isAutomationMatch));
    if (isIndexMatch) {
      tabs_.indexTab = tab;
    }
    if (isTitleMatch) {
      ++tabs_.titleMatches;
      tabs_.titleTab = tab;
    }
  }

  const LiveTab* choose(const std::string& reason, const LiveTab& tab) const {
    step("Activation choice", "reason=" + reason + "; resolvedTitle=\"" + traceSafeText(tab.name) +
                                  "\"; resolvedAutomationId=\"" + traceSafeText(tab.automationId) + "\"");
    return &tab;
  }

  const UiaSession& session_;
  const TabCandidate& candidate_;
  std::wstring cleanRequestedTitle_;
  TraceLog* trace_;
  LiveTabs tabs_;
};

}  // namespace

HRESULT selectResolvedTab(const UiaSession& session, const TabCandidate& candidate, std::wstring* resolvedTitle,
                          std::wstring* resolvedAutomationId, TraceLog* trace) {
  if (!session || ::IsWindow(candidate.hwnd) == FALSE) {
    return E_INVALIDARG;
  }
  TabResolution resolution(session, candidate, trace);
  if (const HRESULT result = resolution.enumerate(); FAILED(result)) {
    return result;
  }
  const LiveTab* tab = resolution.decide();
  if (tab == nullptr) {
    return UIA_E_ELEMENTNOTAVAILABLE;
  }
  if (resolvedTitle != nullptr) {
    *resolvedTitle = tab->name;
  }
  if (resolvedAutomationId != nullptr) {
    *resolvedAutomationId = tab->automationId;
  }
  return resolution.selectAndReadBack(*tab);
}

HRESULT restoreTab(const UiaSession& session, const TabCandidate& original, std::wstring& resolvedTitle,
                   std::wstring& resolvedAutomationId, const char* stepName, TraceLog& trace) {
  const HRESULT result = selectResolvedTab(session, original, &resolvedTitle, &resolvedAutomationId, &trace);
  appendTrace(trace, stepName,
              SUCCEEDED(result) ? "PASS: original tab restored" : "FAIL: original tab could not be restored");
  return result;
}

HRESULT selectTabElement(const UiaElement& tabItem) {
  if (!tabItem) {
    return E_POINTER;
  }
  if (const PatternOutcome selection = tabItem.select(); FAILED(selection.result)) {
    return selection.result;
  }
  if (const PatternOutcome invocation = tabItem.invoke(); invocation.hasPattern) {
    return FAILED(invocation.result) ? invocation.result : S_OK;
  }
  if (const PatternOutcome action = tabItem.doDefaultAction(); action.hasPattern && FAILED(action.result)) {
    return action.result;
  }
  return S_OK;
}

bool isTabElementSelected(const UiaElement& tabItem) { return tabItem.isSelected(); }

}  // namespace orvane
