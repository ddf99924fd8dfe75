#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane::simulation {

// The arguments of a command line by the platform's rules for blanks, quotes and backslashes; the
// first is the program.
std::vector<std::wstring> splitCommandLine(std::wstring_view commandLine);

// The program and an argument so written that they come back unchanged.
std::wstring quotedProgram(std::wstring_view path);
std::wstring quotedArgument(std::wstring_view argument);

}  // namespace orvane::simulation
