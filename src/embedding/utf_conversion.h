#pragma once

#include <string>
#include <string_view>

namespace orvane {

// UTF-8 to UTF-16 by MultiByteToWideChar with CP_UTF8: bytes that aren't valid become U+FFFD. Empty when the
// conversion fails.
std::wstring wideFromUtf8(std::string_view utf8);

// UTF-16 to UTF-8 by WideCharToMultiByte with CP_UTF8: lone surrogate halves become U+FFFD. Empty
// when the conversion fails.
std::string utf8FromWide(std::wstring_view wide);

}  // namespace orvane
