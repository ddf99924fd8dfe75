// Fonts, brushes and what a device context keeps of them.
#include <windows.h>

#include <cstdlib>
#include <string>

#include "contract/contract_world.h"
#include "contract/drawn_window.h"

namespace orvane::contract {
namespace {

HFONT makeFont(int heightPixels) {
  return ::CreateFontW(-heightPixels, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"Segoe UI");
}

class DeviceContexts : public ContractTest {
 protected:
  DeviceContexts() { context_ = ::GetDC(window_.get()); }
  ~DeviceContexts() override { ::ReleaseDC(window_.get(), context_); }

  LONG widthOf(const std::wstring& text) const {
    SIZE extent{};
    EXPECT_NE(::GetTextExtentPoint32W(context_, text.c_str(), static_cast<int>(text.size()), &extent), FALSE);
    return extent.cx;
  }

  DrawnWindow window_;
  HDC context_ = nullptr;
};

TEST_F(DeviceContexts, Fresh_DrawBlackOnOpaque) {
  ASSERT_NE(context_, nullptr);
  EXPECT_EQ(::SetTextColor(context_, RGB(1, 2, 3)), RGB(0, 0, 0));
  EXPECT_EQ(::SetTextColor(context_, RGB(4, 5, 6)), RGB(1, 2, 3));
  EXPECT_EQ(::SetBkMode(context_, TRANSPARENT), OPAQUE);
  EXPECT_EQ(::SetBkMode(context_, OPAQUE), TRANSPARENT);
}

TEST_F(DeviceContexts, Selecting_GivesTheFormerObjectOfItsKind) {
  const HFONT font = makeFont(14);
  const HBRUSH brush = ::CreateSolidBrush(RGB(10, 20, 30));
  ASSERT_NE(font, nullptr);
  ASSERT_NE(brush, nullptr);
  const HGDIOBJ firstFont = ::SelectObject(context_, font);
  const HGDIOBJ firstBrush = ::SelectObject(context_, brush);
  EXPECT_NE(firstFont, nullptr);
  EXPECT_NE(firstBrush, nullptr);
  EXPECT_NE(firstFont, firstBrush);
  EXPECT_EQ(::SelectObject(context_, firstFont), static_cast<HGDIOBJ>(font));
  EXPECT_EQ(::SelectObject(context_, firstBrush), static_cast<HGDIOBJ>(brush));
  EXPECT_NE(::DeleteObject(font), FALSE);
  EXPECT_NE(::DeleteObject(brush), FALSE);
}

TEST_F(DeviceContexts, Selecting_Fails_WithoutAnObjectOrContext) {
  EXPECT_EQ(::SelectObject(context_, nullptr), nullptr);
  EXPECT_EQ(::SelectObject(nullptr, ::GetStockObject(DEFAULT_GUI_FONT)), nullptr);
}

TEST_F(DeviceContexts, StockObjects_AreTheSameAlways_AndOutliveTheirDeletion) {
  const HGDIOBJ font = ::GetStockObject(DEFAULT_GUI_FONT);
  ASSERT_NE(font, nullptr);
  EXPECT_NE(::DeleteObject(font), FALSE);
  EXPECT_EQ(::GetStockObject(DEFAULT_GUI_FONT), font);
  const HGDIOBJ former = ::SelectObject(context_, font);
  EXPECT_NE(former, nullptr);
  EXPECT_GT(widthOf(L"Orvane"), 0);
  ::SelectObject(context_, former);
}

TEST_F(DeviceContexts, Deleting_Fails_WithoutAnObject) { EXPECT_EQ(::DeleteObject(nullptr), FALSE); }

TEST_F(DeviceContexts, Texts_AreAsWideAsTheyAreLong) {
  const HFONT font = makeFont(14);
  const HGDIOBJ former = ::SelectObject(context_, font);
  EXPECT_EQ(widthOf(L""), 0);
  EXPECT_GT(widthOf(L"m"), 0);
  EXPECT_GT(widthOf(L"mm"), widthOf(L"m"));
  EXPECT_GT(widthOf(L"mmmm"), widthOf(L"mm"));
  ::SelectObject(context_, former);
  ::DeleteObject(font);
}

TEST_F(DeviceContexts, Texts_GrowWithTheirFont) {
  const HFONT small = makeFont(14);
  const HFONT large = makeFont(28);
  const HGDIOBJ former = ::SelectObject(context_, small);
  const LONG smallWidth = widthOf(L"Orvane");
  ::SelectObject(context_, large);
  EXPECT_GT(widthOf(L"Orvane"), smallWidth);
  ::SelectObject(context_, former);
  ::DeleteObject(small);
  ::DeleteObject(large);
}

TEST_F(DeviceContexts, Lines_AreAsHighAsTheirFont_WhichHasRoomAboveItsCharacters) {
  const HFONT font = makeFont(20);
  const HGDIOBJ former = ::SelectObject(context_, font);
  SIZE extent{};
  TEXTMETRICW metrics{};
  ASSERT_NE(::GetTextExtentPoint32W(context_, L"Orvane", 6, &extent), FALSE);
  ASSERT_NE(::GetTextMetricsW(context_, &metrics), FALSE);
  EXPECT_EQ(extent.cy, metrics.tmHeight);
  EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight);
  EXPECT_LE(std::abs(metrics.tmHeight - metrics.tmInternalLeading - 20), 1);
  ::SelectObject(context_, former);
  ::DeleteObject(font);
}

TEST_F(DeviceContexts, Drawing_Succeeds) {
  const HBRUSH brush = ::CreateSolidBrush(RGB(10, 20, 30));
  const RECT area{0, 0, 100, 40};
  RECT textArea = area;
  EXPECT_NE(::FillRect(context_, &area, brush), 0);
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(context_, &metrics);
  EXPECT_EQ(::DrawTextW(context_, L"R&D", -1, &textArea, DT_SINGLELINE | DT_NOPREFIX), metrics.tmHeight);
  EXPECT_NE(::DrawTextW(context_, L"R&D", 3, &textArea, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_RIGHT), 0);
  EXPECT_EQ(textArea.right, area.right);
  EXPECT_NE(::DeleteObject(brush), FALSE);
}

TEST_F(DeviceContexts, Drawing_Fails_WithoutAContext) {
  const HBRUSH brush = ::CreateSolidBrush(RGB(10, 20, 30));
  RECT area{0, 0, 100, 40};
  SIZE extent{};
  TEXTMETRICW metrics{};
  EXPECT_EQ(::FillRect(nullptr, &area, brush), 0);
  EXPECT_EQ(::DrawTextW(nullptr, L"R&D", -1, &area, DT_SINGLELINE | DT_NOPREFIX), 0);
  EXPECT_EQ(::GetTextExtentPoint32W(nullptr, L"R&D", 3, &extent), FALSE);
  EXPECT_EQ(::GetTextMetricsW(nullptr, &metrics), FALSE);
  EXPECT_EQ(::SetTextColor(nullptr, RGB(1, 2, 3)), CLR_INVALID);
  EXPECT_EQ(::SetBkMode(nullptr, TRANSPARENT), 0);
  EXPECT_EQ(::ReleaseDC(window_.get(), nullptr), 0);
  EXPECT_NE(::DeleteObject(brush), FALSE);
}

TEST_F(DeviceContexts, AreRefused_ForAWindowThatIsGone) {
  const DrawnWindow* const other = new DrawnWindow;
  const HWND gone = other->get();
  delete other;
  EXPECT_EQ(::GetDC(gone), nullptr);
}

}  // namespace
}  // namespace orvane::contract
