#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "provider_identity/candidate_rules.h"

// What the tests of the candidate rules judge: a request, tabs, and all that comes of them.
namespace orvane::candidate_tests {

inline constexpr const wchar_t* chatGptDomain = L"chatgpt.com";

inline HWND windowOf(std::uintptr_t number) { return reinterpret_cast<HWND>(number); }

inline IdentityRequest requestFor(const std::wstring& name, const std::wstring& domain = L"") {
  IdentityRequest request;
  request.name = name;
  request.domain = domain;
  return request;
}

inline IdentityRequest rememberingPosition() {
  IdentityRequest request = requestFor(L"ChatGPT");
  request.rememberedBrowser = L"Chrome";
  request.rememberedWindow = windowOf(0xA0);
  request.rememberedTabIndex = 2;
  return request;
}

inline TabCandidate inactiveTab(const std::wstring& title) {
  TabCandidate tab;
  tab.hwnd = windowOf(0xA0);
  tab.browser = L"Chrome";
  tab.title = title;
  tab.tabIndex = 2;
  return tab;
}

inline TabCandidate selectedTab(const std::wstring& title, const std::wstring& url) {
  TabCandidate tab = inactiveTab(title);
  tab.selected = true;
  tab.url = url;
  return tab;
}

struct Judgement {
  TabFlags flags;
  TabDecision decision;
  TabCandidate tab;
  std::string line;
};

// The names of the flags that hold.
inline std::set<std::string> namesOf(const TabFlags& flags) {
  const std::array<std::pair<const char*, bool>, 12> all{{
      {"domain", flags.domain},
      {"remembered", flags.remembered},
      {"exactRememberedTitle", flags.exactRememberedTitle},
      {"rememberedAutomationId", flags.rememberedAutomationId},
      {"rememberedPosition", flags.rememberedPosition},
      {"anchoredTitle", flags.anchoredTitle},
      {"verifiedContent", flags.verifiedContent},
      {"rawTitle", flags.rawTitle},
      {"companyHomepage", flags.companyHomepage},
      {"otherProviderAddress", flags.otherProviderAddress},
      {"nonChatClaudePage", flags.nonChatClaudePage},
      {"otherProviderTitle", flags.otherProviderTitle},
  }};
  std::set<std::string> names;
  for (const auto& [name, holds] : all) {
    if (holds) {
      names.insert(name);
    }
  }
  return names;
}

inline Judgement judge(TabCandidate tab, const IdentityRequest& request) {
  const IdentityTerms terms = makeIdentityTerms(request);
  const TabFlags flags = evaluateTab(tab, terms);
  const TabDecision decision = decideTab(tab, flags, terms);
  std::string line = describeTabDecision(1, tab, flags, decision);
  return {flags, decision, tab, line};
}

}  // namespace orvane::candidate_tests
