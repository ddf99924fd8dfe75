#pragma once

#include <windows.h>

extern "C" {

LPWSTR* WINAPI CommandLineToArgvW(LPCWSTR commandLine, int* count);
HINSTANCE WINAPI ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR directory, int show);

}  // extern "C"
