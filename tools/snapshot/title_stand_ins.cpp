#include "snapshot/title_stand_ins.h"

#include <optional>

#include "provider_identity/text_rules.h"
#include "provider_identity/title_rules.h"
#include "snapshot/rule_words.h"
#include "snapshot/stand_in.h"

namespace orvane::snapshot {
namespace {

constexpr unsigned greatestAttempt = 200;

std::wstring generic(const std::wstring& title, unsigned variant) { return standIn(title, titleWords(), variant); }

bool isContained(const std::wstring& tab, const std::wstring& window) { return textContains(window, tab); }

// What discovery and the selection of a tab compare.
bool standAlike(const Titles& titles, const Titles& others) {
  for (std::size_t tab = 0; tab < titles.tabs.size(); ++tab) {
    if (isContained(titles.tabs[tab], titles.window) != isContained(others.tabs[tab], others.window)) {
      return false;
    }
    for (std::size_t earlier = 0; earlier < tab; ++earlier) {
      const bool isSame = cleanTitle(titles.tabs[tab]) == cleanTitle(titles.tabs[earlier]);
      if (isSame != (cleanTitle(others.tabs[tab]) == cleanTitle(others.tabs[earlier]))) {
        return false;
      }
    }
  }
  return true;
}

// An earlier tab of the same clean title; its stand-in begins this one's.
std::optional<std::size_t> namesake(const Titles& titles, std::size_t tab) {
  const std::wstring clean = cleanTitle(titles.tabs[tab]);
  for (std::size_t earlier = 0; earlier < tab; ++earlier) {
    if (cleanTitle(titles.tabs[earlier]) == clean) {
      return earlier;
    }
  }
  return std::nullopt;
}

Titles attempt(const Titles& titles, unsigned variant) {
  Titles result;
  result.window = generic(titles.window, variant);
  const std::wstring window = toLower(titles.window);
  for (std::size_t tab = 0; tab < titles.tabs.size(); ++tab) {
    const std::wstring& title = titles.tabs[tab];
    if (isContained(title, titles.window)) {
      result.tabs.push_back(result.window.substr(window.find(toLower(title)), title.size()));
      continue;
    }
    const unsigned own = variant == 0 ? 0 : variant * 1000 + static_cast<unsigned>(tab);
    std::wstring text = generic(title, own);
    if (const std::optional<std::size_t> earlier = namesake(titles, tab)) {
      const std::size_t shared = cleanTitle(title).size();
      text.replace(0, shared, result.tabs[*earlier], 0, shared);
    }
    result.tabs.push_back(std::move(text));
  }
  return result;
}

}  // namespace

TitleStandIns standInTitles(const Titles& titles) {
  for (unsigned variant = 0; variant <= greatestAttempt; ++variant) {
    Titles result = attempt(titles, variant);
    if (standAlike(titles, result)) {
      return {std::move(result), true};
    }
  }
  return {attempt(titles, greatestAttempt), false};
}

}  // namespace orvane::snapshot
