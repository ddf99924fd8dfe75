#pragma once

#include <string>
#include <vector>

namespace orvane {

// The arguments of GetCommandLineW without the program's path, as UTF-8; empty when
// CommandLineToArgvW fails. A badly formed argument stays in the list as an empty text.
std::vector<std::string> GetCommandLineArguments();

// UTF-16 to UTF-8; empty for a null pointer and for a text that isn't valid UTF-16. At most 32767
// units are looked at.
std::string Utf8FromUtf16(const wchar_t* text);

// One of the arguments asks for a start at a place that no screen shows.
bool asksForOffscreenStart(const std::vector<std::string>& arguments);

}  // namespace orvane
