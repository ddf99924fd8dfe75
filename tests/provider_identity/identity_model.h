#pragma once

#include <set>
#include <string>

#include "provider_identity/candidate_rules.h"

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

struct Verdict {
  std::set<std::string> flags;  // the names of those that hold
  std::string decision;         // as the trace writes it
  bool isExplicit = false;      // these two and the score only of a tab that came to acceptance
  bool isStrict = false;
  int score = 0;
};

Verdict judge(const TabCandidate& tab, const IdentityRequest& request);

}  // namespace orvane::identity_model
