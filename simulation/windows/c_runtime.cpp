#include <wchar.h>

namespace {

// The runtime's starting locale folds the letters of ASCII alone.
wchar_t folded(wchar_t unit) {
  return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
}

}  // namespace

int _wcsicmp(const wchar_t* one, const wchar_t* other) {
  while (folded(*one) == folded(*other) && *one != L'\0') {
    ++one;
    ++other;
  }
  return static_cast<int>(folded(*one)) - static_cast<int>(folded(*other));
}
