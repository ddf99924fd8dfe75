#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// The lower-cased file name of a process's image by QueryFullProcessImageNameW; empty when the
// process can't be opened or asked.
std::wstring processImageName(DWORD pid);

}  // namespace orvane
