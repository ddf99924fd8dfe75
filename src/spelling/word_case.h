#pragma once

#include <string>
#include <string_view>

namespace orvane {

// How a word is written, by its UTF-16 units under the process's locale; half a surrogate pair is no
// letter.
struct WordCase {
  bool hasLetter = false;
  bool allCaps = false;    // four units or more, with an upper-case letter and no lower-case one
  bool mixedCase = false;  // both cases, and not just a capital first letter: a name or a brand
};

WordCase classifyWord(std::wstring_view word);

// Every unit by towlower or towupper.
std::wstring loweredUnits(std::wstring text);
std::wstring raisedUnits(std::wstring text);

}  // namespace orvane
