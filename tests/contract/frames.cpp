#include <windows.h>
// windows.h first: the next builds on it.
#include <dwmapi.h>

#include <algorithm>
#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

constexpr UINT frameOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;

struct Frame {
  LONG left = 0;
  LONG top = 0;
  LONG right = 0;
  LONG bottom = 0;
  bool operator==(const Frame&) const = default;
};

Frame frameOf(DWORD style, UINT dpi) {
  RECT bounds{0, 0, 100, 100};
  EXPECT_NE(::AdjustWindowRectExForDpi(&bounds, style, FALSE, WS_EX_APPWINDOW, dpi), FALSE);
  return {-bounds.left, -bounds.top, bounds.right - 100, bounds.bottom - 100};
}

class Frames : public ContractTest {
 protected:
  Frames() {
    answerNothing();
    takeSeen();
  }
  ~Frames() override { ::DestroyWindow(window_); }

  RECT client() const {
    RECT area{};
    EXPECT_NE(::GetClientRect(window_, &area), FALSE);
    return area;
  }

  LONG_PTR compactStyle() const {
    return (::GetWindowLongPtrW(window_, GWL_STYLE) & ~LONG_PTR{WS_CAPTION | WS_MINIMIZEBOX | WS_MAXIMIZEBOX}) |
           WS_SYSMENU | WS_THICKFRAME;
  }

  OwnClass class_{L"OrvaneContractFrames"};
  HWND window_ = class_.makeWindow();
};

TEST_F(Frames, CaptionedAndSizable_HasThickSidesAndACaption) {
  EXPECT_EQ(frameOf(WS_OVERLAPPEDWINDOW, 96), (Frame{8, 31, 8, 8}));
}

TEST_F(Frames, Frame_GrowsWithTheDensity) {
  const Frame frame = frameOf(WS_OVERLAPPEDWINDOW, 192);
  EXPECT_GT(frame.left, 8);
  EXPECT_GT(frame.top, 31);
  EXPECT_EQ(frame.left, frame.right);
  EXPECT_EQ(frame.left, frame.bottom);
}

TEST_F(Frames, SizableWithoutACaption_HasFourEqualSides) {
  EXPECT_EQ(frameOf(WS_SYSMENU | WS_THICKFRAME, 96), (Frame{8, 8, 8, 8}));
}

TEST_F(Frames, NoFrameStyle_AddsNothing) {
  EXPECT_EQ(frameOf(WS_POPUP | WS_SYSMENU, 96), Frame{});
  EXPECT_EQ(frameOf(WS_CHILD | WS_VISIBLE, 96), Frame{});
}

TEST_F(Frames, ClientArea_LiesInsideTheFrame) {
  RECT bounds{};
  ::GetWindowRect(window_, &bounds);
  RECT framed = client();
  ASSERT_NE(::AdjustWindowRectExForDpi(&framed, WS_OVERLAPPEDWINDOW, FALSE, 0, ::GetDpiForWindow(window_)), FALSE);
  EXPECT_EQ(framed.right - framed.left, bounds.right - bounds.left);
  EXPECT_EQ(framed.bottom - framed.top, bounds.bottom - bounds.top);
  POINT origin{0, 0};
  ASSERT_NE(::ClientToScreen(window_, &origin), FALSE);
  EXPECT_EQ(origin.x, bounds.left - framed.left);
  EXPECT_EQ(origin.y, bounds.top - framed.top);
}

TEST_F(Frames, ClientPoint_OfADeadWindow_IsRefused) {
  const HWND dead = class_.makeWindow();
  ::DestroyWindow(dead);
  POINT point{0, 0};
  EXPECT_EQ(::ClientToScreen(dead, &point), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST_F(Frames, NewStyle_ShowsOnlyWhenTheFrameIsRecomputed) {
  const RECT before = client();
  takeSeen();
  ::SetWindowLongPtrW(window_, GWL_STYLE, compactStyle());
  EXPECT_EQ(client().bottom, before.bottom);
  EXPECT_TRUE(takeSeen().empty());
  ASSERT_NE(::SetWindowPos(window_, nullptr, 0, 0, 0, 0, frameOnly), FALSE);
  EXPECT_EQ(client().bottom, before.bottom);
  ASSERT_NE(::SetWindowPos(window_, nullptr, 0, 0, 0, 0, frameOnly | SWP_FRAMECHANGED), FALSE);
  const RECT after = client();
  EXPECT_GT(after.bottom, before.bottom);
  EXPECT_EQ(after.right, before.right);
  const std::vector<SeenMessage> messages = takeSeen();
  const auto size =
      std::find_if(messages.begin(), messages.end(), [](const SeenMessage& entry) { return entry.message == WM_SIZE; });
  ASSERT_NE(size, messages.end());
  EXPECT_EQ(HIWORD(size->lParam), after.bottom);
}

TEST_F(Frames, NewStyle_ShowsWithAnotherSize) {
  ::SetWindowLongPtrW(window_, GWL_STYLE, compactStyle());
  const RECT before = client();
  ASSERT_NE(::SetWindowPos(window_, nullptr, 0, 0, 410, 300, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE), FALSE);
  EXPECT_EQ(client().right, before.right + 10);
  EXPECT_GT(client().bottom, before.bottom);
}

TEST_F(Frames, ExtendedFrame_LiesInsideASizableFrame) {
  ::ShowWindow(window_, SW_SHOWNORMAL);
  RECT bounds{};
  RECT extended{};
  ::GetWindowRect(window_, &bounds);
  ASSERT_EQ(::DwmGetWindowAttribute(window_, DWMWA_EXTENDED_FRAME_BOUNDS, &extended, sizeof extended), S_OK);
  const LONG unseen = ::MulDiv(7, static_cast<int>(::GetDpiForWindow(window_)), 96);
  EXPECT_EQ(extended.left, bounds.left + unseen);
  EXPECT_EQ(extended.top, bounds.top);
  EXPECT_EQ(extended.right, bounds.right - unseen);
  EXPECT_EQ(extended.bottom, bounds.bottom - unseen);
}

TEST_F(Frames, ExtendedFrame_OfADeadWindow_OrInAWrongSize_IsRefused) {
  RECT extended{};
  EXPECT_EQ(::DwmGetWindowAttribute(window_, DWMWA_EXTENDED_FRAME_BOUNDS, &extended, 12), E_INVALIDARG);
  const HWND dead = class_.makeWindow();
  ::DestroyWindow(dead);
  EXPECT_EQ(::DwmGetWindowAttribute(dead, DWMWA_EXTENDED_FRAME_BOUNDS, &extended, sizeof extended), E_HANDLE);
}

}  // namespace
}  // namespace orvane::contract
