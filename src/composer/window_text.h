#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// The window's title by GetWindowTextLengthW and GetWindowTextW; empty when it has none.
inline std::wstring windowText(HWND window) {
  const int lengthUnits = ::GetWindowTextLengthW(window);
  if (lengthUnits <= 0) {
    return {};
  }
  std::wstring text(static_cast<std::size_t>(lengthUnits) + 1, L'\0');
  const int copiedUnits = ::GetWindowTextW(window, text.data(), lengthUnits + 1);
  text.resize(copiedUnits > 0 ? static_cast<std::size_t>(copiedUnits) : 0);
  return text;
}

}  // namespace orvane
