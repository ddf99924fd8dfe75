#pragma once

#include <windows.h>

#include <map>
#include <vector>

namespace orvane::simulation {

struct MenuEntry {
  UINT id = 0;
  ULONG_PTR data = 0;
};

// The host's menus. Handles are never given out twice.
struct MenuRoom {
  std::map<HMENU, std::vector<MenuEntry>> menus;
  std::uintptr_t created = 0;
  HMENU open = nullptr;
  int openedCount = 0;
};

}  // namespace orvane::simulation
