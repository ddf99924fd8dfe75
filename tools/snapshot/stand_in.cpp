#include "snapshot/stand_in.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwctype>
#include <vector>

#include "provider_identity/text_rules.h"
#include "snapshot/rule_words.h"

namespace orvane::snapshot {
namespace {

constexpr std::array<std::wstring_view, 2> webSchemes{L"http://", L"https://"};
constexpr wchar_t firstBeyondAscii = 0x80;

bool isAscii(wchar_t unit) { return unit < firstBeyondAscii; }

// The whole scheme of `lower`, "://" included; empty for another text.
std::wstring_view webSchemeOf(std::wstring_view lower) {
  const auto scheme = std::find_if(webSchemes.begin(), webSchemes.end(),
                                   [&](std::wstring_view each) { return lower.starts_with(each); });
  return scheme == webSchemes.end() ? std::wstring_view() : *scheme;
}

void keepRange(std::vector<bool>& kept, std::size_t from, std::size_t to) {
  std::fill(kept.begin() + static_cast<std::ptrdiff_t>(from), kept.begin() + static_cast<std::ptrdiff_t>(to), true);
}

void keepHost(std::wstring_view lower, std::vector<bool>& kept) {
  const std::size_t authority = webSchemeOf(lower).size();
  if (authority == 0) {
    return;
  }
  keepRange(kept, 0, authority);
  const std::size_t end = std::min(lower.find_first_of(L"/?#", authority), lower.size());
  const std::size_t user = lower.substr(0, end).rfind(L'@');
  const std::size_t host = user == std::wstring_view::npos || user < authority ? authority : user + 1;
  keepRange(kept, host, std::min(lower.find(L':', host), end));
}

template <typename Visit>
void forEachOccurrence(std::wstring_view lower, std::wstring_view word, const Visit& visit) {
  for (std::size_t at = lower.find(word); at != std::wstring_view::npos; at = lower.find(word, at + 1)) {
    visit(at);
  }
}

// Scattered, and the same for the same place of the same variant.
std::uint32_t scatter(unsigned variant, std::size_t place) {
  std::uint32_t mixed = variant * 0x9E3779B1U + static_cast<std::uint32_t>(place) * 0x85EBCA77U;
  mixed ^= mixed >> 15;
  mixed *= 0x2C1B3C6DU;
  return mixed ^ (mixed >> 13);
}

wchar_t letterFor(unsigned variant, std::size_t place) {
  const std::size_t choice = variant == 0 ? 0 : scatter(variant, place) % (freeLetters.size() + 1);
  return choice == 0 ? L'x' : freeLetters[choice - 1];
}

wchar_t digitFor(unsigned variant, std::size_t place) {
  return static_cast<wchar_t>(L'0' + (variant == 0 ? 0 : scatter(variant, place) % 10));
}

bool isBlank(wchar_t unit) { return std::iswspace(static_cast<std::wint_t>(unit)) != 0; }
bool isDigit(wchar_t unit) { return std::iswdigit(static_cast<std::wint_t>(unit)) != 0; }
bool isWordUnit(wchar_t unit) { return std::iswalnum(static_cast<std::wint_t>(unit)) != 0; }

wchar_t unitFor(wchar_t unit, unsigned variant, std::size_t place) {
  if (isBlank(unit)) {
    return unit;
  }
  if (isDigit(unit)) {
    return digitFor(variant, place);
  }
  if (isWordUnit(unit)) {
    return letterFor(variant, place);
  }
  return isAscii(unit) ? unit : L'*';
}

// Where an `x` completed a word that the text doesn't hold, a free letter takes its place.
void breakNewWords(std::wstring_view lower, std::span<const std::wstring_view> words, const std::vector<bool>& kept,
                   std::wstring& result) {
  for (const std::wstring_view word : words) {
    forEachOccurrence(toLower(result), word, [&](std::size_t at) {
      if (lower.substr(at, word.size()) == word) {
        return;
      }
      for (std::size_t place = at; place < at + word.size(); ++place) {
        if (!kept[place] && result[place] == L'x') {
          result[place] = freeLetters.front();
        }
      }
    });
  }
}

}  // namespace

std::wstring standIn(std::wstring_view text, std::span<const std::wstring_view> words, unsigned variant) {
  const std::wstring lower = toLower(text);
  std::vector<bool> kept(text.size(), false);
  keepHost(lower, kept);
  for (const std::wstring_view word : words) {
    forEachOccurrence(lower, word, [&](std::size_t at) { keepRange(kept, at, at + word.size()); });
  }
  std::wstring result(text);
  for (std::size_t place = 0; place < result.size(); ++place) {
    if (!kept[place]) {
      result[place] = unitFor(text[place], variant, place);
    } else if (!isAscii(text[place])) {
      // A sign that only its folding makes part of a word needn't fold the same way elsewhere.
      result[place] = lower[place];
    }
  }
  breakNewWords(lower, words, kept, result);
  return result;
}

}  // namespace orvane::snapshot
