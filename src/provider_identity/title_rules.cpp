#include "provider_identity/title_rules.h"

#include <algorithm>
#include <array>
#include <cwctype>
#include <tuple>

#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr std::array<std::wstring_view, 6> statusMarkers{
    L" - high memory usage - ", L" - memory usage - ", L" - inactive tab - ",
    L" - sleeping tab - ",      L" - memory saver - ", L" - tab sleeping - ",
};

// Below this length containment proves nothing.
constexpr std::size_t containmentFloorUnits = 8;

struct TitleWord {
  std::wstring_view provider;
  std::wstring_view word;
};

constexpr std::array<TitleWord, 4> titleWords{{
    {provider_key::gemini, L" - google gemini"},
    {provider_key::gemini, L"google gemini"},
    {provider_key::claude, L" - claude"},
    {provider_key::chatGpt, L" - chatgpt"},
}};

constexpr std::array<std::wstring_view, 8> nonChatTitles{
    L"new tab", L"settings", L"downloads", L"history", L"extensions", L"bookmarks", L"chrome", L"microsoft edge",
};

constexpr std::wstring_view companyTitle = L"openai";
constexpr std::array<std::wstring_view, 3> companyTitleStarts{L"openai |", L"openai:", L"about openai"};

}  // namespace

std::wstring cleanTitle(std::wstring_view title) {
  std::wstring clean = toLower(title);
  for (const std::wstring_view marker : statusMarkers) {
    if (const std::size_t position = clean.find(marker); position != std::wstring::npos) {
      clean.resize(position);
    }
  }
  while (!clean.empty() && std::iswspace(static_cast<std::wint_t>(clean.back())) != 0) {
    clean.pop_back();
  }
  return clean;
}

ProviderKey providerFromTitle(std::wstring_view title) {
  const std::wstring lower = toLower(title);
  const auto hit = std::find_if(titleWords.begin(), titleWords.end(),
                                [&](const TitleWord& entry) { return contains(lower, entry.word); });
  return hit == titleWords.end() ? ProviderKey() : ProviderKey(hit->provider);
}

bool titlesMatch(std::wstring_view first, std::wstring_view second) {
  const std::wstring a = cleanTitle(first);
  const std::wstring b = cleanTitle(second);
  if (a.empty() || b.empty()) {
    return false;
  }
  if (a == b) {
    return true;
  }
  const auto& [shorter, longer] = a.size() < b.size() ? std::tie(a, b) : std::tie(b, a);
  return shorter.size() >= containmentFloorUnits && contains(longer, shorter);
}

bool isNonChatTitle(std::wstring_view title) {
  const std::wstring clean = cleanTitle(title);
  return clean.empty() || std::find(nonChatTitles.begin(), nonChatTitles.end(), clean) != nonChatTitles.end();
}

bool isOpenAiCompanyTitle(std::wstring_view title) {
  const std::wstring clean = cleanTitle(title);
  return clean == companyTitle ||
         std::any_of(companyTitleStarts.begin(), companyTitleStarts.end(),
                     [&](std::wstring_view start) { return std::wstring_view(clean).starts_with(start); });
}

bool titleBelongsToOtherProvider(std::wstring_view title, std::wstring_view providerName) {
  const std::wstring lowerTitle = toLower(title);
  const std::wstring lowerName = toLower(providerName);
  return std::any_of(titleWords.begin(), titleWords.end(), [&](const TitleWord& entry) {
    return !contains(lowerName, entry.provider) && contains(lowerTitle, entry.word);
  });
}

bool isAnchoredTitle(std::wstring_view title, const ProviderKey& key) {
  const std::wstring clean = cleanTitle(title);
  if (clean == key) {
    return true;
  }
  if (key == provider_key::gemini && clean == L"google gemini") {
    return true;
  }
  const ProviderKey named = providerFromTitle(title);
  return !named.empty() && named == key;
}

}  // namespace orvane
