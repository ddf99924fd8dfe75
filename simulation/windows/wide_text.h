#pragma once

#include <string>
#include <string_view>

#include "world/text.h"

namespace orvane::simulation {

// The platform's wide characters hold one UTF-16 unit each. A wide character that holds more ends
// the run: on Windows there is none.
std::wstring wideFromText(TextView text);
Text textFromWide(std::wstring_view wide);

// The same text in lower case as far as ASCII goes: how names of classes, files and keys compare.
std::wstring foldedName(std::wstring_view name);

// The nth unit as the platform would store it.
char16_t unitOf(wchar_t wide);

}  // namespace orvane::simulation
