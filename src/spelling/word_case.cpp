#include "spelling/word_case.h"

#include <algorithm>
#include <cstddef>
#include <cwctype>

namespace orvane {
namespace {

constexpr std::size_t leastCapsUnits = 4;

wint_t wide(wchar_t unit) { return static_cast<wint_t>(unit); }

}  // namespace

WordCase classifyWord(std::wstring_view word) {
  bool hasLetter = false;
  bool firstUpper = false;
  std::size_t upperCount = 0;
  std::size_t lowerCount = 0;
  for (const wchar_t unit : word) {
    if (std::iswalpha(wide(unit)) == 0) {
      continue;
    }
    const bool isUpper = std::iswupper(wide(unit)) != 0;
    if (!hasLetter) {
      hasLetter = true;
      firstUpper = isUpper;
    }
    if (isUpper) {
      ++upperCount;
    } else if (std::iswlower(wide(unit)) != 0) {
      ++lowerCount;
    }
  }
  const bool isCapitalised = firstUpper && upperCount == 1;
  WordCase found;
  found.hasLetter = hasLetter;
  found.allCaps = word.size() >= leastCapsUnits && upperCount >= 1 && lowerCount == 0;
  found.mixedCase = upperCount >= 1 && lowerCount >= 1 && !isCapitalised;
  return found;
}

std::wstring loweredUnits(std::wstring text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](wchar_t unit) { return static_cast<wchar_t>(std::towlower(wide(unit))); });
  return text;
}

std::wstring raisedUnits(std::wstring text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](wchar_t unit) { return static_cast<wchar_t>(std::towupper(wide(unit))); });
  return text;
}

}  // namespace orvane
