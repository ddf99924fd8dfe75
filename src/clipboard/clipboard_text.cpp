#include "clipboard/clipboard_text.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "clipboard/clipboard_block.h"
#include "clipboard/clipboard_owners.h"

namespace orvane {
namespace {

std::wstring textOfBlock(std::span<const std::uint8_t> bytes) {
  std::wstring text;
  for (std::size_t at = 0; at + clipboardUnitBytes <= bytes.size(); at += clipboardUnitBytes) {
    char16_t unit = 0;
    std::memcpy(&unit, bytes.data() + at, clipboardUnitBytes);
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
  const ClipboardBlock block(CF_UNICODETEXT, {clipboardUnitBytes, greatestTextBlockBytes});
  return textOfBlock(block.bytes());
}

std::optional<std::wstring> takeClipboardText() {
  const OpenedClipboard clipboard(::OpenClipboard(nullptr) != FALSE);
  if (!clipboard) {
    return std::nullopt;
  }
  return normalizeLineEnds(readClipboardText());
}

}  // namespace orvane
