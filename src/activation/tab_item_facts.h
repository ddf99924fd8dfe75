#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// One browser window while its tabs are read.
struct BrowserWindow {
  HWND window = nullptr;
  DWORD pid = 0;
  std::wstring imageName;
  std::wstring displayName;
  std::wstring title;
  std::wstring address;
  bool isComposerProven = false;
  int tabControls = 0;
  int tabItems = 0;
};

// One tab item as it was read.
struct TabItemFacts {
  int index = 0;  // among the window's tab items
  std::wstring name;
  std::wstring automationId;
  std::wstring className;
  std::wstring frameworkId;
  bool isUiaSelected = false;
  bool isWindowTitleSelected = false;

  // Whichever of the two signs a browser gives is enough.
  bool isSelected() const { return isUiaSelected || isWindowTitleSelected; }
};

}  // namespace orvane
