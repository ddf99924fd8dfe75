#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace orvane {

// A UTF-16 unit in a clipboard block, whatever a wide character measures.
inline constexpr std::size_t clipboardUnitBytes = 2;

// Each CR LF pair becomes LF, from the start of the text to its end; a lone CR stays.
std::wstring normalizeLineEnds(const std::wstring& text);

// The text of a clipboard that the caller holds open: CF_UNICODETEXT up to the first zero unit or
// the end of its block. Empty when the format is absent, the block smaller than 2 or larger than
// 8,388,608 bytes, or the lock fails.
std::wstring readClipboardText();

// The clipboard's text with line ends normalized, in one opening of the clipboard; nullopt when it
// can't be opened. Reads only.
std::optional<std::wstring> takeClipboardText();

}  // namespace orvane
