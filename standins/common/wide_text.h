#pragma once

#include <string>
#include <string_view>

#include "world/text.h"

namespace orvane::standins {

// A wide character here is one UTF-16 code unit, as in the model's texts.
static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::wstring wideFromText(simulation::TextView text) { return {text.begin(), text.end()}; }
inline simulation::Text textFromWide(std::wstring_view text) { return {text.begin(), text.end()}; }

// Lone surrogate halves become U+FFFD.
inline std::string utf8FromWide(std::wstring_view text) { return simulation::utf8FromText(textFromWide(text)); }
inline std::wstring wideFromUtf8(std::string_view utf8) { return wideFromText(simulation::textFromUtf8(utf8)); }

}  // namespace orvane::standins
