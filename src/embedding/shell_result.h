#pragma once

#include <windows.h>

namespace orvane {

// ShellExecuteW tells success by a value above this one.
inline constexpr INT_PTR greatestShellError = 32;

}  // namespace orvane
