#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "provider_identity/provider_tables.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// What a discovery pass compares every tab with.
struct IdentityTerms {
  std::wstring name;
  ProviderKey key;
  std::wstring domain;
  std::vector<std::wstring> patterns;  // none of them empty
  std::wstring rememberedTitle;        // empty when it was ignored
  std::wstring cleanRememberedTitle;
  std::wstring rememberedAutomationId;
  std::wstring rememberedBrowserKey;
  HWND rememberedWindow = nullptr;
  std::int32_t rememberedTabIndex = -1;
  bool rememberedTitleIgnored = false;  // it belongs to another provider
};

IdentityTerms makeIdentityTerms(const std::wstring& name, const std::wstring& domain,
                                std::vector<std::wstring> patterns, const std::wstring& rememberedTitle,
                                const std::wstring& rememberedAutomationId, const std::wstring& rememberedBrowser,
                                HWND rememberedWindow, std::int32_t rememberedTabIndex);

// What was found of one tab, in the order in which it is worked out.
struct TabFlags {
  bool domain = false;
  bool remembered = false;
  bool exactRememberedTitle = false;
  bool rememberedAutomationId = false;
  bool rememberedPosition = false;
  bool anchoredTitle = false;
  bool verifiedContent = false;
  bool rawTitle = false;
  bool companyHomepage = false;
  bool otherProviderAddress = false;
  bool nonChatClaudePage = false;
  bool otherProviderTitle = false;
};

TabFlags evaluateTab(const TabCandidate& tab, const IdentityTerms& terms);

enum class TabDecision {
  rejectCompanyHomepage,
  rejectNonChatClaudePage,
  rejectOtherProvider,
  noMatch,
  accept,
};

// Decides about one tab and fills its `providerMatch`, `explicitMatch`, `strictTitle` and, when
// accepted, its `score`.
TabDecision decideTab(TabCandidate& tab, const TabFlags& flags, const IdentityTerms& terms);

// The text of the step "Trace tab"; `ordinal` counts the tabs of a pass from 1.
std::string describeTabDecision(std::size_t ordinal, const TabCandidate& tab, const TabFlags& flags,
                                TabDecision decision);

}  // namespace orvane
