#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/logical_scale.h"
#include "desktop/window_geometry.h"

namespace orvane::desktop_tests {

inline constexpr DWORD captionBits = 0x00C30000;  // caption, minimize box, maximize box
inline constexpr DWORD frameBits = 0x000C0000;    // system menu, sizable frame
inline constexpr DWORD overlappedBits = 0x00CF0000;
inline const std::wstring normalTitle = L"Orvane: The Desk for Every Assistant";

// A main window and what the commands tell its owner.
class Main {
 public:
  explicit Main(DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE) : window({100, 100, 900, 700}, L"PlainWindow", style) {
    host.readHandle = [this] { return window.get(); };
    host.setCompactMode = [this](bool isCompact) { compactModes.push_back(isCompact); };
  }

  HWND handle() const { return window.get(); }
  MainWindow asMain() const { return {window.get(), logicalScale(window.get())}; }
  bool place(const EncodableMap& arguments) { return setBounds(asMain(), host, &arguments); }

  PlainWindow window;
  HostWindow host;
  std::vector<bool> compactModes;
};

// The sides of a rectangle by its size.
inline std::vector<LONG> box(LONG left, LONG top, LONG width, LONG height) {
  return {left, top, left + width, top + height};
}

}  // namespace orvane::desktop_tests
