#include "desktop/menu_drawing.h"

#include <algorithm>

#include "desktop/gdi_owners.h"
#include "desktop/logical_scale.h"
#include "desktop/menu_items.h"

namespace orvane {
namespace {

constexpr int addedWidthLogical = 28;
constexpr int addedHeightLogical = 10;
constexpr int leastItemHeightLogical = 30;
constexpr int textInsetLogical = 14;

constexpr UINT textFlags = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;
constexpr UINT rightToLeftFlags = textFlags | DT_RIGHT | DT_RTLREADING;

// Logical pixels at the density of the window that opened the menu.
struct Metrics {
  explicit Metrics(HWND window) : dpi(static_cast<int>(::GetDpiForWindow(window))) {}
  [[nodiscard]] int pixels(int logicalPixels) const { return ::MulDiv(logicalPixels, dpi, standardDpi); }

  int dpi;
};

HGDIOBJ fontOf(const MenuItemRecord& record) {
  return record.font != nullptr ? static_cast<HGDIOBJ>(record.font) : ::GetStockObject(DEFAULT_GUI_FONT);
}

struct TextSize {
  LONG width = 0;
  LONG height = 0;  // of the font
};

TextSize measureLabel(HWND window, const MenuItemRecord& record) {
  SIZE extent{};
  TEXTMETRICW metrics{};
  const HDC context = ::GetDC(window);
  {
    const SelectedObject font(context, fontOf(record));
    ::GetTextExtentPoint32W(context, record.label.c_str(), static_cast<int>(record.label.size()), &extent);
    ::GetTextMetricsW(context, &metrics);
  }
  ::ReleaseDC(window, context);
  return {extent.cx, metrics.tmHeight};
}

}  // namespace

bool measureMenuItem(HWND window, MEASUREITEMSTRUCT* item) {
  const MenuItemRecord* record = item->CtlType == ODT_MENU ? liveMenuItem(item->itemData) : nullptr;
  if (record == nullptr) {
    return false;
  }
  const TextSize text = measureLabel(window, *record);
  const Metrics metrics(window);
  item->itemWidth = static_cast<UINT>(text.width + metrics.pixels(addedWidthLogical));
  item->itemHeight = static_cast<UINT>(
      std::max<LONG>(text.height + metrics.pixels(addedHeightLogical), metrics.pixels(leastItemHeightLogical)));
  return true;
}

bool drawMenuItem(HWND window, const DRAWITEMSTRUCT* item) {
  const MenuItemRecord* record = item->CtlType == ODT_MENU ? liveMenuItem(item->itemData) : nullptr;
  if (record == nullptr) {
    return false;
  }
  const bool isSelected = (item->itemState & ODS_SELECTED) != 0;
  {
    const UniqueBrush brush(::CreateSolidBrush(isSelected ? record->selectedBackground : record->background));
    ::FillRect(item->hDC, &item->rcItem, brush.get());
  }
  ::SetBkMode(item->hDC, TRANSPARENT);
  ::SetTextColor(item->hDC, isSelected ? record->selectedText : record->text);
  const SelectedObject font(item->hDC, fontOf(*record));
  const int inset = Metrics(window).pixels(textInsetLogical);
  RECT area = item->rcItem;
  area.left += inset;
  area.right -= inset;
  ::DrawTextW(item->hDC, record->label.c_str(), -1, &area, record->rtl ? rightToLeftFlags : textFlags);
  return true;
}

}  // namespace orvane
