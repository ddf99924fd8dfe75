#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "provider_identity/provider_tables.h"
#include "provider_identity/tab_candidate.h"

namespace orvane {

// Whom a search looks for, and where it was found before.
struct IdentityRequest {
  std::wstring name;
  std::wstring domain;                 // of the provider's pages; an empty one is in no address
  std::vector<std::wstring> patterns;  // further words of titles; an empty one is in none
  std::wstring rememberedTitle;
  std::wstring rememberedAutomationId;
  std::wstring rememberedBrowser;        // display name
  HWND rememberedWindow = nullptr;       // null: none is remembered
  std::int32_t rememberedTabIndex = -1;  // negative: none is remembered
};

// What a discovery pass compares every tab with.
struct IdentityTerms {
  std::wstring name;
  ProviderKey key;
  std::wstring domain;
  std::vector<std::wstring> patterns;
  std::wstring rememberedTitle;  // empty when it was ignored
  std::wstring cleanRememberedTitle;
  std::wstring rememberedAutomationId;
  std::wstring rememberedBrowserKey;  // lower case
  HWND rememberedWindow = nullptr;
  std::int32_t rememberedTabIndex = -1;
  bool rememberedTitleIgnored = false;  // it belongs to another provider
};

// Derives once what all tabs of a pass are compared with.
IdentityTerms makeIdentityTerms(IdentityRequest request);

// What was found of one tab, in the order in which it is worked out. Address and content are looked
// at of a selected tab alone.
struct TabFlags {
  bool domain = false;                  // the address contains the domain
  bool remembered = false;              // the title resembles the remembered one
  bool exactRememberedTitle = false;    // both titles are equal when cleaned
  bool rememberedAutomationId = false;  // `remembered`, and browser and id are the remembered ones
  bool rememberedPosition = false;      // ChatGPT: window, index and browser are the remembered ones
  bool anchoredTitle = false;           // the title names the provider where its pages put the name
  bool verifiedContent = false;         // ChatGPT: the window's composer was proven
  bool rawTitle = false;                // the title contains the name or a pattern
  bool companyHomepage = false;         // the address is a page of a company behind a provider
  bool otherProviderAddress = false;    // the address names a provider, and `domain` is false
  bool nonChatClaudePage = false;       // Claude: there is an address, and it is no chat's
  bool otherProviderTitle = false;      // the title names another provider
};

// Works out every flag, whatever an earlier one gave.
TabFlags evaluateTab(const TabCandidate& tab, const IdentityTerms& terms);

enum class TabDecision {
  rejectCompanyHomepage,
  rejectNonChatClaudePage,
  rejectOtherProvider,
  noMatch,
  accept,
};

// Decides about one tab. One that isn't rejected gets its `providerMatch`, `explicitMatch` and
// `strictTitle`, an accepted one its `score` too; a rejected one stays as it is.
TabDecision decideTab(TabCandidate& tab, const TabFlags& flags, const IdentityTerms& terms);

// The text of the step "Trace tab"; `ordinal` counts the tabs of a pass from 1.
std::string describeTabDecision(std::size_t ordinal, const TabCandidate& tab, const TabFlags& flags,
                                TabDecision decision);

}  // namespace orvane
