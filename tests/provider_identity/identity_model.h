#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "provider_identity/tab_candidate.h"

// The identity rules once more, as plainly as can be: no tables shared, nothing short-circuited.
namespace orvane::identity_model {

std::wstring fold(std::wstring text);
bool holds(const std::wstring& text, const std::wstring& part);  // as they are; an empty part is held

std::wstring clean(const std::wstring& title);
bool match(const std::wstring& first, const std::wstring& second);
std::wstring providerOfTitle(const std::wstring& title);
bool belongsToOther(const std::wstring& title, const std::wstring& name);

std::wstring providerOfAddress(const std::wstring& address);
bool isAddress(const std::wstring& text);
bool isCompanyPage(const std::wstring& address);
bool isUsableClaudePage(const std::wstring& address);

struct Request {
  std::wstring name;
  std::wstring domain;
  std::vector<std::wstring> patterns;
  std::wstring rememberedTitle;
  std::wstring rememberedAutomationId;
  std::wstring rememberedBrowser;
  std::uintptr_t rememberedWindow = 0;
  std::int32_t rememberedTabIndex = -1;
};

struct Verdict {
  std::set<std::string> flags;  // the names of those that hold
  std::string decision;         // as the trace writes it
  bool isExplicit = false;      // these two and the score only of a tab that came to acceptance
  bool isStrict = false;
  int score = 0;
};

Verdict judge(const TabCandidate& tab, const Request& request);

}  // namespace orvane::identity_model
