#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "embedding/encodable_value.h"

namespace orvane {

inline constexpr std::uint64_t menuItemTag = 0x4F484D31;  // "OHM1"

// One entry of the native menu; colours 0x00BBGGRR.
struct MenuItemRecord {
  std::uint64_t tag = menuItemTag;  // marks a live record
  std::uint32_t id = 0;             // menu command number, from 1
  std::string action;               // UTF-8: what the reply returns
  std::wstring label;
  std::wstring shortcut;  // kept, and by design neither drawn nor measured
  HFONT font = nullptr;   // all records of a menu share one; null: the stock font
  bool rtl = false;
  COLORREF background = 0x1F1C19;
  COLORREF text = 0xFFFFFF;
  COLORREF selectedBackground = 0x6E7800;
  COLORREF selectedText = 0xFFFFFF;
};

// The entries of the argument `items`, those without `action` or `label` left out; these take no id.
// Empty when there is no such list.
std::vector<MenuItemRecord> parseMenuItems(const EncodableMap* arguments);

// While one stands, its records are among the live menu items: those of a menu that is open.
class LiveMenuItems {
 public:
  LiveMenuItems() = default;
  ~LiveMenuItems();
  LiveMenuItems(const LiveMenuItems&) = delete;
  LiveMenuItems& operator=(const LiveMenuItems&) = delete;

  void add(const MenuItemRecord* record);

 private:
  std::vector<const MenuItemRecord*> records_;
};

// The live record that an owner-draw message names by its item data; null when it names none.
const MenuItemRecord* liveMenuItem(ULONG_PTR itemData);

}  // namespace orvane
