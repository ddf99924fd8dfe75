#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orvane::snapshot {

// A text in place of another, of the same length in UTF-16 units. It keeps `words` where they
// occur, blanks and ASCII punctuation, and of an address with a web scheme the scheme and the host
// (not a user's name in front of it). Of the rest letters become `x`, digits `0` and other signs
// `*`, and none of `words` occurs where it didn't. So a rule that searches for the words, compares
// with one, measures or trims gives the same answer about both.
//
// A `variant` other than 0 gives further texts of the same kind, with other letters and digits.
std::wstring standIn(std::wstring_view text, std::span<const std::wstring_view> words, unsigned variant = 0);

}  // namespace orvane::snapshot
