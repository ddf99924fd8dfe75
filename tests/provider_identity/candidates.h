#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "provider_identity/candidate_rules.h"

// What the tests of the candidate rules judge: a request, tabs, and all that comes of them.
namespace orvane::candidate_tests {

inline constexpr const wchar_t* chatGptDomain = L"chatgpt.com";

inline HWND windowOf(std::uintptr_t number) { return reinterpret_cast<HWND>(number); }

struct Request {
  std::wstring name = L"ChatGPT";
  std::wstring domain;
  std::vector<std::wstring> patterns;
  std::wstring rememberedTitle;
  std::wstring rememberedAutomationId;
  std::wstring rememberedBrowser;
  std::uintptr_t rememberedWindow = 0;
  std::int32_t rememberedTabIndex = -1;
};

inline Request requestFor(const std::wstring& name, const std::wstring& domain = L"") {
  Request request;
  request.name = name;
  request.domain = domain;
  return request;
}

inline Request rememberingPosition() {
  Request request;
  request.rememberedBrowser = L"Chrome";
  request.rememberedWindow = 0xA0;
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

inline IdentityTerms termsOf(const Request& request) {
  return makeIdentityTerms(request.name, request.domain, request.patterns, request.rememberedTitle,
                           request.rememberedAutomationId, request.rememberedBrowser,
                           windowOf(request.rememberedWindow), request.rememberedTabIndex);
}

inline Judgement judge(TabCandidate tab, const Request& request) {
  const IdentityTerms terms = termsOf(request);
  const TabFlags flags = evaluateTab(tab, terms);
  const TabDecision decision = decideTab(tab, flags, terms);
  std::string line = describeTabDecision(1, tab, flags, decision);
  return {flags, decision, tab, line};
}

}  // namespace orvane::candidate_tests
