#include "desktop/native_menu.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "desktop/appearance.h"
#include "desktop/gdi_owners.h"
#include "desktop/logical_scale.h"
#include "desktop/menu_items.h"
#include "embedding/call_arguments.h"

namespace orvane {
namespace {

constexpr double leastFontScale = 0.85;
constexpr double greatestFontScale = 1.2;
constexpr double fontSizeLogical = 14.0;
constexpr long leastFontSizePixels = 10;
constexpr const wchar_t* fontFace = L"Segoe UI";

struct MenuTraits {
  using Value = HMENU;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value menu) noexcept { ::DestroyMenu(menu); }
};
using UniqueMenu = UniqueResource<MenuTraits>;

// A number that is no number keeps the least size.
int fontSizePixels(double fontScale, UINT dpi) {
  const double scale =
      std::isnan(fontScale) ? leastFontScale : std::clamp(fontScale, leastFontScale, greatestFontScale);
  return static_cast<int>(std::max(std::lround(scale * fontSizeLogical * dpi / standardDpi), leastFontSizePixels));
}

UniqueFont createFont(int sizePixels) {
  return UniqueFont(::CreateFontW(-sizePixels, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                  OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                                  DEFAULT_PITCH | FF_DONTCARE, fontFace));
}

// The records keep their places from here on: the menu points at them.
void fillMenu(HMENU menu, std::vector<MenuItemRecord>& records, HFONT font, const EncodableMap* arguments,
              LiveMenuItems& live) {
  const bool rtl = flagEntry(arguments, "rtl", false);
  const AppearanceColors colors = appearanceColors(stringEntry(arguments, "appearance"));
  for (MenuItemRecord& record : records) {
    record.font = font;
    record.rtl = rtl;
    record.background = colors.background;
    record.text = colors.text;
    record.selectedBackground = colors.selectedBackground;
    record.selectedText = colors.text;
    live.add(&record);
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA;
    info.fType = MFT_OWNERDRAW;
    info.wID = record.id;
    info.dwItemData = reinterpret_cast<ULONG_PTR>(&record);
    ::InsertMenuItemW(menu, static_cast<UINT>(-1), TRUE, &info);
  }
}

POINT anchorOnScreen(HWND mainWindow, UINT dpi, const EncodableMap* arguments) {
  const double scale = scaleAtDpi(dpi);
  POINT point{truncatedPixels(numberEntry(arguments, "anchorX", 0.0) * scale),
              truncatedPixels(numberEntry(arguments, "anchorY", 0.0) * scale)};
  ::ClientToScreen(mainWindow, &point);
  return point;
}

// The id chosen; 0 when the menu was dismissed. Everything that stands for the menu ends with it.
std::uint32_t runMenu(HWND mainWindow, UniqueMenu menu, std::vector<MenuItemRecord>& records,
                      const EncodableMap* arguments) {
  const UINT dpi = ::GetDpiForWindow(mainWindow);
  const UniqueFont font = createFont(fontSizePixels(numberEntry(arguments, "fontScale", 1.0), dpi));
  LiveMenuItems live;
  fillMenu(menu.get(), records, font.get(), arguments, live);
  const POINT point = anchorOnScreen(mainWindow, dpi, arguments);
  ::SetForegroundWindow(mainWindow);
  const BOOL chosen = ::TrackPopupMenuEx(menu.get(), TPM_RIGHTALIGN | TPM_NONOTIFY | TPM_RETURNCMD, point.x, point.y,
                                         mainWindow, nullptr);
  menu.reset();
  return static_cast<std::uint32_t>(chosen);
}

}  // namespace

std::string showNativeHotKeysMenu(HWND mainWindow, const EncodableMap* arguments) {
  UniqueMenu menu(::CreatePopupMenu());
  if (!menu) {
    return {};
  }
  std::vector<MenuItemRecord> records = parseMenuItems(arguments);
  if (records.empty()) {
    return {};
  }
  const std::uint32_t chosen = runMenu(mainWindow, std::move(menu), records, arguments);
  ::PostMessageW(mainWindow, WM_NULL, 0, 0);
  const auto entry = std::find_if(records.begin(), records.end(),
                                  [chosen](const MenuItemRecord& record) { return record.id == chosen; });
  return entry == records.end() ? std::string() : entry->action;
}

}  // namespace orvane
