#pragma once

#include <string>
#include <string_view>

namespace orvane::simulation {

// Every text of the desktop is UTF-16, as on Windows; lone surrogate halves are allowed.
using Text = std::u16string;
using TextView = std::u16string_view;

// Bytes that aren't valid UTF-8 become U+FFFD.
Text textFromUtf8(std::string_view utf8);

// Lone surrogate halves become U+FFFD.
std::string utf8FromText(TextView text);

// A to Z in small letters, all else as it is.
Text foldAscii(TextView text);

}  // namespace orvane::simulation
