#include "desktop/menu_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "desktop/desktop_test.h"
#include "desktop/menu_items.h"

namespace orvane {
namespace {

using desktop_tests::DesktopTest;
using desktop_tests::faultOf;
using desktop_tests::oneMonitor;
using desktop_tests::PlainWindow;
using simulation::DrawnText;
using simulation::FilledArea;
using simulation::SimulatedDesktop;
using simulation::StockFont;

constexpr UINT listBox = 2;  // a control type that isn't a menu's

// A record of an open menu.
class OpenRecord {
 public:
  explicit OpenRecord(const std::wstring& label = L"Copy & paste") {
    record.label = label;
    record.shortcut = L"Ctrl+C";
    record.background = 0x101010;
    record.text = 0x202020;
    record.selectedBackground = 0x303030;
    record.selectedText = 0x404040;
    live_.add(&record);
  }

  MenuItemRecord record;

 private:
  LiveMenuItems live_;
};

MEASUREITEMSTRUCT measuringOf(const MenuItemRecord& record) {
  MEASUREITEMSTRUCT item{};
  item.CtlType = ODT_MENU;
  item.itemData = reinterpret_cast<ULONG_PTR>(&record);
  return item;
}

DRAWITEMSTRUCT drawingOf(const MenuItemRecord& record, HDC context, UINT itemState = 0) {
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_MENU;
  item.itemState = itemState;
  item.hDC = context;
  item.rcItem = {0, 30, 200, 60};
  item.itemData = reinterpret_cast<ULONG_PTR>(&record);
  return item;
}

struct TextSize {
  UINT width = 0;
  UINT height = 0;
};

// What the platform says of the label in this font.
TextSize sizeOf(HWND window, const std::wstring& label, HGDIOBJ font) {
  const HDC context = ::GetDC(window);
  const HGDIOBJ former = ::SelectObject(context, font);
  SIZE extent{};
  TEXTMETRICW metrics{};
  ::GetTextExtentPoint32W(context, label.c_str(), static_cast<int>(label.size()), &extent);
  ::GetTextMetricsW(context, &metrics);
  ::SelectObject(context, former);
  ::ReleaseDC(window, context);
  return {static_cast<UINT>(extent.cx), static_cast<UINT>(metrics.tmHeight)};
}

HFONT makeFont(int height) {
  return ::CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, L"Segoe UI");
}

UINT scaled(int logical, int dpi) { return static_cast<UINT>(::MulDiv(logical, dpi, 96)); }

using MenuMeasuring = DesktopTest;

TEST_F(MenuMeasuring, AddsTheMarginsToTheTextsSize) {
  for (const int dpi : {48, 96, 120, 144, 192}) {
    for (const int fontHeight : {10, 17, 40}) {
      const SimulatedDesktop desktop(oneMonitor({0, 0, 4000, 3000}, dpi));
      const PlainWindow window;
      OpenRecord open;
      const HFONT font = makeFont(fontHeight);
      open.record.font = font;
      const TextSize text = sizeOf(window.get(), open.record.label, font);
      MEASUREITEMSTRUCT item = measuringOf(open.record);

      EXPECT_TRUE(measureMenuItem(window.get(), &item));

      EXPECT_EQ(item.itemWidth, text.width + scaled(28, dpi));
      EXPECT_EQ(item.itemHeight, std::max(text.height + scaled(10, dpi), scaled(30, dpi)));
      ::DeleteObject(font);
    }
  }
}

TEST_F(MenuMeasuring, TakesTheWholeLabelAndNoShortcut) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const auto widthOf = [&window](const std::wstring& label, const std::wstring& shortcut) {
    OpenRecord open(label);
    open.record.shortcut = shortcut;
    MEASUREITEMSTRUCT item = measuringOf(open.record);
    measureMenuItem(window.get(), &item);
    return item.itemWidth;
  };
  EXPECT_EQ(widthOf(L"Copy", L""), widthOf(L"Copy", L"Ctrl+Shift+Alt+C"));
  EXPECT_GT(widthOf(L"Copy &", L""), widthOf(L"Copy", L""));
}

TEST_F(MenuMeasuring, UsesTheStockFont_WhenThereIsNone) {
  const SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const OpenRecord open;
  const TextSize text = sizeOf(window.get(), open.record.label, ::GetStockObject(DEFAULT_GUI_FONT));
  MEASUREITEMSTRUCT item = measuringOf(open.record);
  EXPECT_TRUE(measureMenuItem(window.get(), &item));
  EXPECT_EQ(item.itemWidth, text.width + 28);
  EXPECT_EQ(item.itemHeight, std::max(text.height + 10, 30U));
}

TEST_F(MenuMeasuring, TakesNoHarm_WhenAStepFails) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  OpenRecord open;
  const HFONT font = makeFont(20);
  open.record.font = font;
  for (const auto& [call, result] : {std::pair{"GetDC", "null"},
                                     {"SelectObject", "null"},
                                     {"GetTextExtentPoint32W", "false"},
                                     {"GetTextMetricsW", "false"}}) {
    desktop.setFaults(faultOf(call, result));
    MEASUREITEMSTRUCT item = measuringOf(open.record);
    EXPECT_TRUE(measureMenuItem(window.get(), &item)) << call;
    EXPECT_GE(item.itemWidth, 28U) << call;
    EXPECT_GE(item.itemHeight, 30U) << call;
    EXPECT_EQ(desktop.held("gdiObjects"), 1) << call << ": the font alone";
  }
  open.record.font = nullptr;
  desktop.setFaults(faultOf("GetStockObject", "null"));
  MEASUREITEMSTRUCT item = measuringOf(open.record);
  EXPECT_TRUE(measureMenuItem(window.get(), &item));
  desktop.setFaults("[]");
  ::DeleteObject(font);
}

TEST_F(MenuMeasuring, HasNoMargins_WhenTheDpiIsZero) {
  SimulatedDesktop desktop("{}");
  const PlainWindow window;
  const OpenRecord open;
  const TextSize text = sizeOf(window.get(), open.record.label, ::GetStockObject(DEFAULT_GUI_FONT));
  desktop.setFaults(faultOf("GetDpiForWindow", "0"));
  MEASUREITEMSTRUCT item = measuringOf(open.record);
  EXPECT_TRUE(measureMenuItem(window.get(), &item));
  EXPECT_EQ(item.itemWidth, text.width);
  EXPECT_EQ(item.itemHeight, text.height);
}

// Draws one entry on a window and gives what came of it.
class MenuDrawing : public DesktopTest {
 protected:
  std::vector<simulation::Painted> draw(const MenuItemRecord& record, UINT itemState = 0) {
    auto& painted = desktop.platform().records().painted;
    painted.clear();
    const HDC context = ::GetDC(window.get());
    const DRAWITEMSTRUCT item = drawingOf(record, context, itemState);
    EXPECT_TRUE(drawMenuItem(window.get(), &item));
    ::ReleaseDC(window.get(), context);
    return painted;
  }

  SimulatedDesktop desktop{"{}"};
  PlainWindow window;
};

TEST_F(MenuDrawing, FillsTheWholeEntryAndWritesInsideIt) {
  OpenRecord open;
  const HFONT font = makeFont(14);
  open.record.font = font;
  const auto painted = draw(open.record);
  ASSERT_EQ(painted.size(), 2U);
  const auto& area = std::get<FilledArea>(painted[0]);
  EXPECT_EQ(area.color, 0x101010U);
  EXPECT_EQ(area.bounds, (simulation::Rectangle{0, 30, 200, 60}));
  const auto& text = std::get<DrawnText>(painted[1]);
  EXPECT_EQ(text.text, u"Copy & paste");
  EXPECT_EQ(text.color, 0x202020U);
  EXPECT_EQ(text.flags, 0x824U);
  EXPECT_EQ(text.bounds, (simulation::Rectangle{14, 30, 186, 60}));
  EXPECT_TRUE(text.isTransparent);
  EXPECT_EQ(std::get<simulation::FontArguments>(text.font).height, -14);
  EXPECT_EQ(desktop.held("gdiObjects"), 1) << "the font alone";
  ::DeleteObject(font);
}

TEST_F(MenuDrawing, UsesTheColoursOfTheHighlight_WhenTheEntryIsSelected) {
  const OpenRecord open;
  for (const UINT itemState : {UINT{ODS_SELECTED}, UINT{ODS_SELECTED | 0x0100}}) {
    const auto painted = draw(open.record, itemState);
    ASSERT_EQ(painted.size(), 2U);
    EXPECT_EQ(std::get<FilledArea>(painted[0]).color, 0x303030U);
    EXPECT_EQ(std::get<DrawnText>(painted[1]).color, 0x404040U);
  }
  const auto focused = draw(open.record, 0x0110);
  EXPECT_EQ(std::get<FilledArea>(focused[0]).color, 0x101010U) << "other states don't count";
}

TEST_F(MenuDrawing, WritesFromTheRight_WhenTheMenuIsRightToLeft) {
  OpenRecord open;
  open.record.rtl = true;
  const auto painted = draw(open.record);
  EXPECT_EQ(std::get<DrawnText>(painted.at(1)).flags, 0x20826U);
}

TEST_F(MenuDrawing, UsesTheStockFont_WhenThereIsNone) {
  const OpenRecord open;
  const auto painted = draw(open.record);
  EXPECT_EQ(std::get<StockFont>(std::get<DrawnText>(painted.at(1)).font).name, "DEFAULT_GUI_FONT");
}

TEST_F(MenuDrawing, TakesNoHarm_WhenAStepFails) {
  OpenRecord open;
  const HFONT font = makeFont(14);
  open.record.font = font;
  for (const auto& [call, result] : {std::pair{"CreateSolidBrush", "null"},
                                     {"FillRect", "0"},
                                     {"SetBkMode", "0"},
                                     {"SetTextColor", "4294967295"},
                                     {"SelectObject", "null"},
                                     {"DrawTextW", "0"},
                                     {"GetDpiForWindow", "0"}}) {
    desktop.setFaults(faultOf(call, result));
    draw(open.record);
    desktop.setFaults("[]");
    EXPECT_EQ(desktop.held("gdiObjects"), 1) << call << ": the font alone";
  }
  open.record.font = nullptr;
  desktop.setFaults(faultOf("GetStockObject", "null"));
  draw(open.record);
  desktop.setFaults("[]");
  ::DeleteObject(font);
}

TEST_F(MenuDrawing, TakesNoHarm_WhenThereIsNothingToDrawOn) {
  const OpenRecord open;
  const DRAWITEMSTRUCT item = drawingOf(open.record, nullptr);
  EXPECT_TRUE(drawMenuItem(window.get(), &item));
  EXPECT_EQ(desktop.held("gdiObjects"), 0);
}

TEST_F(MenuDrawing, LeavesForeignItemsAlone) {
  OpenRecord open;
  OpenRecord mistagged;
  mistagged.record.tag = 0;
  const MenuItemRecord closed;
  const std::pair<UINT, ULONG_PTR> foreign[] = {{listBox, reinterpret_cast<ULONG_PTR>(&open.record)},
                                                {0, reinterpret_cast<ULONG_PTR>(&open.record)},
                                                {ODT_MENU, 0},
                                                {ODT_MENU, 1},
                                                {ODT_MENU, reinterpret_cast<ULONG_PTR>(&closed)},
                                                {ODT_MENU, reinterpret_cast<ULONG_PTR>(&mistagged.record)}};
  desktop.platform().records().painted.clear();
  const HDC context = ::GetDC(window.get());
  const std::int64_t contexts = desktop.platformCalls("GetDC");
  for (const auto& [type, data] : foreign) {
    MEASUREITEMSTRUCT measuring = measuringOf(open.record);
    measuring.CtlType = type;
    measuring.itemData = data;
    measuring.itemWidth = 3;
    measuring.itemHeight = 4;
    EXPECT_FALSE(measureMenuItem(window.get(), &measuring));
    EXPECT_EQ(measuring.itemWidth, 3U);
    EXPECT_EQ(measuring.itemHeight, 4U);
    DRAWITEMSTRUCT drawing = drawingOf(open.record, context);
    drawing.CtlType = type;
    drawing.itemData = data;
    EXPECT_FALSE(drawMenuItem(window.get(), &drawing));
  }
  EXPECT_EQ(desktop.platformCalls("GetDC"), contexts);
  EXPECT_EQ(desktop.platformCalls("FillRect"), 0);
  EXPECT_EQ(desktop.platformCalls("SetBkMode"), 0);
  EXPECT_TRUE(desktop.platform().records().painted.empty());
  ::ReleaseDC(window.get(), context);
}

}  // namespace
}  // namespace orvane
