#pragma once

#include <span>
#include <string_view>

namespace orvane::snapshot {

// What the host's rules look for in texts, lower-cased, by the kind of text. A stand-in keeps these
// words where they stand. None of them holds a digit, nor a letter of `freeLetters`.

// In an address, and in the values of fields, which may be addresses.
std::span<const std::wstring_view> addressWords();

// In the title of a tab or of a window.
std::span<const std::wstring_view> titleWords();

// In names, ids and classes of controls; the words of addresses among them.
std::span<const std::wstring_view> nameWords();

// Letters that no word holds, so that a stand-in of them can't become one.
inline constexpr std::wstring_view freeLetters = L"zj";

}  // namespace orvane::snapshot
