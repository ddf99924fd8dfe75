#pragma once

#include <windows.h>

namespace orvane {

// Whether a window belongs to a process of this program's image, this one or another instance: by
// QueryFullProcessImageNameW and GetModuleFileNameW, without letter case. False when the process can't
// be opened or a path can't be read.
bool isOwnProgramWindow(HWND window);

}  // namespace orvane
