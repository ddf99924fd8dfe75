#pragma once

#include <windows.h>

namespace orvane {

inline constexpr COLORREF standardBackgroundColor = 0x1F1C19;
inline constexpr const wchar_t* cleanBackgroundProperty = L"Orvane.CleanBackground";

// The one clean background panel of the process; reached on the platform thread only.
struct CleanBackgroundState {
  HWND cleanBackgroundWindow = nullptr;
  HWND cleanBackgroundOwner = nullptr;  // the main window, from the panel's creation to that window's end
  bool temporarilyClosed = false;       // the user has closed the panel, and no reopening has come since
  COLORREF cleanBackgroundColor = standardBackgroundColor;
  double cleanBackgroundHeight = 0.0;  // logical pixels; 0 or less: the rectangle rule chooses
};

CleanBackgroundState& cleanBackgroundState();

}  // namespace orvane
