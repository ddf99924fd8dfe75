#include <wchar.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cwctype>

#include "world/faults.h"

// The platform's runtime in its starting locale. What a unit is, it knows for all of Unicode; case it
// changes for the letters of ASCII alone. The C library here knows neither beyond ASCII then, so its
// classes stand behind those of its own Unicode locale.
namespace {

wchar_t folded(wchar_t unit) {
  return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
}

locale_t unicodeLocale() {
  static const locale_t known = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (known == nullptr) orvane::simulation::stopRun("newlocale", "there is no locale \"C.UTF-8\"");
  return known;
}

// Beside the row of blanks below; those that don't break a line count too.
constexpr std::array<wint_t, 7> blanksBeyondAscii{0x00A0, 0x1680, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000};
constexpr wint_t firstOfTheBlanks = 0x2000;
constexpr wint_t lastOfTheBlanks = 0x200A;

}  // namespace

int _wcsicmp(const wchar_t* one, const wchar_t* other) {
  while (folded(*one) == folded(*other) && *one != L'\0') {
    ++one;
    ++other;
  }
  return static_cast<int>(folded(*one)) - static_cast<int>(folded(*other));
}

extern "C" {

int iswspace(wint_t unit) noexcept {
  if (unit <= 0x7F) return unit == L' ' || (unit >= L'\t' && unit <= L'\r') ? 1 : 0;
  if (unit >= firstOfTheBlanks && unit <= lastOfTheBlanks) return 1;
  return std::find(blanksBeyondAscii.begin(), blanksBeyondAscii.end(), unit) != blanksBeyondAscii.end() ? 1 : 0;
}

int iswalpha(wint_t unit) noexcept { return ::iswalpha_l(unit, unicodeLocale()); }
int iswupper(wint_t unit) noexcept { return ::iswupper_l(unit, unicodeLocale()); }
int iswlower(wint_t unit) noexcept { return ::iswlower_l(unit, unicodeLocale()); }
}
