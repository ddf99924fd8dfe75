#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace orvane {

// One tab of a browser window as discovery read it; the same record serves for candidates and for
// the target. Plain data: no UI Automation element stands in it.
struct TabCandidate {
  HWND hwnd = nullptr;
  std::uint32_t pid = 0;  // of the window's process, by GetWindowThreadProcessId
  std::wstring browser;   // display name
  std::wstring title;     // the tab item's name, as read
  std::wstring url;       // the window's address, of a selected tab only
  std::wstring automationId;
  std::int32_t tabIndex = -1;  // position among the window's tab items
  bool selected = false;
  bool verifiedContent = false;  // selected, and the window's composer was proven
  bool providerMatch = false;    // accepted as the provider's
  bool explicitMatch = false;    // on grounds that let its automation id be handed out
  bool strictTitle = false;      // stands on its title alone: its index may not be used instead
  std::int32_t score = 0;
};

}  // namespace orvane
