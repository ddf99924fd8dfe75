#pragma once

#include <windows.h>

enum DWMWINDOWATTRIBUTE {
  DWMWA_EXTENDED_FRAME_BOUNDS = 9,
  DWMWA_USE_IMMERSIVE_DARK_MODE = 20,
  DWMWA_CAPTION_COLOR = 35,
  DWMWA_TEXT_COLOR = 36,
};

extern "C" HRESULT WINAPI DwmGetWindowAttribute(HWND window, DWORD attribute, PVOID data, DWORD size);
extern "C" HRESULT WINAPI DwmSetWindowAttribute(HWND window, DWORD attribute, LPCVOID data, DWORD size);
