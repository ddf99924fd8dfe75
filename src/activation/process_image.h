#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// The path of a process's image by QueryFullProcessImageNameW, read into a place of that many units;
// empty when the process can't be opened, or its path not read or too long.
std::wstring processImagePath(DWORD pid, DWORD capacityUnits);

// The lower-cased file name of a process's image by QueryFullProcessImageNameW; empty when the
// process can't be opened or asked.
std::wstring processImageName(DWORD pid);

// The process that a window belongs to.
struct WindowProcess {
  DWORD pid = 0;           // by GetWindowThreadProcessId; 0 when that fails
  std::wstring imageName;  // as `processImageName` gives it
};

WindowProcess readWindowProcess(HWND window);

}  // namespace orvane
