#include "clipboard/clipboard_text.h"

#include <windows.h>

#include <cstring>

#include "clipboard/clipboard_owners.h"

namespace orvane {
namespace {

constexpr SIZE_T leastBlockBytes = 2;
constexpr SIZE_T greatestBlockBytes = 8'388'608;

std::wstring textOfBlock(const char* bytes, std::size_t sizeBytes) {
  std::wstring text;
  for (std::size_t at = 0; at + clipboardUnitBytes <= sizeBytes; at += clipboardUnitBytes) {
    char16_t unit = 0;
    std::memcpy(&unit, bytes + at, clipboardUnitBytes);
    if (unit == 0) {
      break;
    }
    text.push_back(static_cast<wchar_t>(unit));
  }
  return text;
}

}  // namespace

std::wstring normalizeLineEnds(const std::wstring& text) {
  std::wstring normalized;
  normalized.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == L'\r' && at + 1 < text.size() && text[at + 1] == L'\n') {
      continue;
    }
    normalized.push_back(text[at]);
  }
  return normalized;
}

std::wstring readClipboardText() {
  const HGLOBAL block = ::GetClipboardData(CF_UNICODETEXT);
  if (block == nullptr) {
    return {};
  }
  const SIZE_T sizeBytes = ::GlobalSize(block);
  if (sizeBytes < leastBlockBytes || sizeBytes > greatestBlockBytes) {
    return {};
  }
  const auto* const bytes = static_cast<const char*>(::GlobalLock(block));
  if (bytes == nullptr) {
    return {};
  }
  const LockedBlock locked(block);
  return textOfBlock(bytes, sizeBytes);
}

std::optional<std::wstring> takeClipboardText() {
  const OpenedClipboard clipboard(::OpenClipboard(nullptr) != FALSE);
  if (!clipboard) {
    return std::nullopt;
  }
  return normalizeLineEnds(readClipboardText());
}

}  // namespace orvane
