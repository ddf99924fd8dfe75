#include "embedding/utf_conversion.h"

#include <cstddef>

#include <windows.h>

namespace orvane {

std::wstring wideFromUtf8(std::string_view utf8) {
  const int byteCount = static_cast<int>(utf8.size());
  const int unitCount = utf8.empty() ? 0 : ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), byteCount, nullptr, 0);
  if (unitCount <= 0) {
    return {};
  }
  std::wstring wide(static_cast<std::size_t>(unitCount), L'\0');
  if (::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), byteCount, wide.data(), unitCount) <= 0) {
    return {};
  }
  return wide;
}

std::string utf8FromWide(std::wstring_view wide) {
  const int unitCount = static_cast<int>(wide.size());
  const int byteCount =
      wide.empty() ? 0 : ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), unitCount, nullptr, 0, nullptr, nullptr);
  if (byteCount <= 0) {
    return {};
  }
  std::string utf8(static_cast<std::size_t>(byteCount), '\0');
  if (::WideCharToMultiByte(CP_UTF8, 0, wide.data(), unitCount, utf8.data(), byteCount, nullptr, nullptr) <= 0) {
    return {};
  }
  return utf8;
}

}  // namespace orvane
