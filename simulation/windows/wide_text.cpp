#include "windows/wide_text.h"

#include "world/faults.h"

namespace orvane::simulation {

char16_t unitOf(wchar_t wide) {
  const auto value = static_cast<std::uint32_t>(wide);
  if (value > 0xFFFF) stopRun("wide text", "a wide character above U+FFFF is no UTF-16 unit");
  return static_cast<char16_t>(value);
}

std::wstring wideFromText(TextView text) { return std::wstring(text.begin(), text.end()); }

Text textFromWide(std::wstring_view wide) {
  Text text;
  text.reserve(wide.size());
  for (const wchar_t unit : wide) text.push_back(unitOf(unit));
  return text;
}

std::wstring foldedName(std::wstring_view name) {
  std::wstring folded(name);
  for (wchar_t& unit : folded) {
    if (unit >= L'A' && unit <= L'Z') unit = static_cast<wchar_t>(unit - L'A' + L'a');
  }
  return folded;
}

}  // namespace orvane::simulation
