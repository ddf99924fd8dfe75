#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

// A copy in which each UTF-16 unit went through towlower: no case folding beyond that, no trimming.
std::wstring toLower(std::wstring_view text);

// Substring test on both texts lower-cased; an empty needle is never contained.
bool textContains(std::wstring_view haystack, std::wstring_view needle);

// Substring test on both texts as they are; an empty part is always contained.
inline bool contains(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

// True when the text contains one of `words`, any range of texts.
template <typename Words>
bool containsAnyOf(std::wstring_view text, const Words& words) {
  return std::any_of(words.begin(), words.end(), [text](std::wstring_view word) { return contains(text, word); });
}

// What of a UTF-8 text may stand in a trace line: line ends become blanks, and a text of 181 bytes
// or more is cut to 177 and "...". The cut may fall inside a UTF-8 sequence.
std::string traceSafeText(std::string_view utf8);

// The same for a wide text.
std::string traceSafeText(std::wstring_view text);

// "0x" and upper-case hexadecimal without leading zeros.
std::string formatHresult(std::int32_t value);

// "0x" and lower-case hexadecimal without leading zeros; takes the numeric value of a handle.
std::string formatHandle(std::uint64_t value);

// "Y" or "N", as trace lines show a bool.
std::string yesNo(bool value);

}  // namespace orvane
