#include "provider_identity/text_rules.h"

#include <algorithm>
#include <cwctype>

#include "embedding/utf_conversion.h"

namespace orvane {
namespace {

constexpr std::size_t traceTextLimitBytes = 180;
constexpr std::string_view cutMark = "...";

std::string hexadecimal(std::uint64_t value, std::string_view digits) {
  std::string text;
  do {
    text.insert(text.begin(), digits[value % 16]);
    value /= 16;
  } while (value != 0);
  return "0x" + text;
}

}  // namespace

std::wstring toLower(std::wstring_view text) {
  std::wstring lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](wchar_t unit) { return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(unit))); });
  return lower;
}

bool textContains(std::wstring_view haystack, std::wstring_view needle) {
  return !needle.empty() && toLower(haystack).find(toLower(needle)) != std::wstring::npos;
}

std::string traceSafeText(std::string_view utf8) {
  std::string safe(utf8);
  std::replace_if(
      safe.begin(), safe.end(), [](char byte) { return byte == '\r' || byte == '\n'; }, ' ');
  if (safe.size() > traceTextLimitBytes) {
    safe.resize(traceTextLimitBytes - cutMark.size());
    safe += cutMark;
  }
  return safe;
}

std::string traceSafeText(std::wstring_view text) { return traceSafeText(utf8FromWide(text)); }

std::string formatHresult(std::int32_t value) {
  return hexadecimal(static_cast<std::uint32_t>(value), "0123456789ABCDEF");
}

std::string formatHandle(std::uint64_t value) { return hexadecimal(value, "0123456789abcdef"); }

std::string yesNo(bool value) { return value ? "Y" : "N"; }

}  // namespace orvane
