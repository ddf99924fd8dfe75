#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

// What the windows of this file say on WM_GETMINMAXINFO, and what they saw.
struct Sizes {
  POINT least{0, 0};  // 0: the platform's own stays
  POINT most{0, 0};
  std::vector<UINT> messages;  // from the creation on, up to WM_CREATE
  MINMAXINFO offered{};
  int asked = 0;
};

Sizes& sizes() {
  static Sizes known;
  return known;
}

LRESULT CALLBACK limit(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETMINMAXINFO || message == WM_NCCREATE || message == WM_CREATE)
    sizes().messages.push_back(message);
  if (message != WM_GETMINMAXINFO) return ::DefWindowProcW(window, message, wParam, lParam);
  auto* const info = reinterpret_cast<MINMAXINFO*>(lParam);
  sizes().offered = *info;
  ++sizes().asked;
  if (sizes().least.x != 0) info->ptMinTrackSize = sizes().least;
  if (sizes().most.x != 0) info->ptMaxTrackSize = sizes().most;
  return 0;
}

class TrackingSizes : public ContractTest {
 protected:
  TrackingSizes() {
    sizes() = {};
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = limit;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    EXPECT_NE(::RegisterClassW(&windowClass), 0);
  }
  ~TrackingSizes() override {
    if (window_ != nullptr) ::DestroyWindow(window_);
    ::UnregisterClassW(className, ::GetModuleHandleW(nullptr));
  }

  void make(DWORD style, int width, int height) {
    window_ = ::CreateWindowExW(0, className, L"", style, 50, 60, width, height, nullptr, nullptr,
                                ::GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window_, nullptr);
  }

  void resize(int width, int height) const {
    ASSERT_NE(::SetWindowPos(window_, nullptr, 70, 80, width, height, SWP_NOZORDER | SWP_NOACTIVATE), FALSE);
  }

  void expectSize(int width, int height) const {
    RECT bounds{};
    ASSERT_NE(::GetWindowRect(window_, &bounds), FALSE);
    EXPECT_EQ(bounds.right - bounds.left, width);
    EXPECT_EQ(bounds.bottom - bounds.top, height);
  }

  static constexpr const wchar_t* className = L"OrvaneContractSizes";
  HWND window_ = nullptr;
};

TEST_F(TrackingSizes, Creation_AsksBeforeAnythingElse_AndKeepsTheAnswer) {
  sizes().least = {320, 210};
  make(WS_OVERLAPPEDWINDOW, 100, 400);
  ASSERT_GE(sizes().messages.size(), 3u);
  EXPECT_EQ(sizes().messages[0], static_cast<UINT>(WM_GETMINMAXINFO));
  EXPECT_EQ(sizes().messages[1], static_cast<UINT>(WM_NCCREATE));
  expectSize(320, 400);
}

TEST_F(TrackingSizes, Offer_IsSmallButNotNothing) {
  make(WS_OVERLAPPEDWINDOW, 400, 300);
  EXPECT_GE(sizes().offered.ptMinTrackSize.x, 100);
  EXPECT_GE(sizes().offered.ptMinTrackSize.y, 20);
  EXPECT_GT(sizes().offered.ptMaxTrackSize.x, 1000);
  resize(1, 1);
  expectSize(sizes().offered.ptMinTrackSize.x, sizes().offered.ptMinTrackSize.y);
}

TEST_F(TrackingSizes, NewSize_IsKeptWithinTheLimits_AndLeavesTheCorner) {
  sizes().least = {320, 210};
  sizes().most = {600, 500};
  make(WS_OVERLAPPEDWINDOW, 400, 300);
  resize(200, 700);
  expectSize(320, 500);
  RECT bounds{};
  ::GetWindowRect(window_, &bounds);
  EXPECT_EQ(bounds.left, 70);
  EXPECT_EQ(bounds.top, 80);
  ASSERT_NE(::MoveWindow(window_, 70, 80, 900, 100, TRUE), FALSE);
  expectSize(600, 210);
}

TEST_F(TrackingSizes, Least_WinsOverTheMost) {
  sizes().least = {320, 210};
  sizes().most = {300, 200};
  make(WS_OVERLAPPEDWINDOW, 400, 300);
  expectSize(320, 210);
}

TEST_F(TrackingSizes, Move_AsksForNothing) {
  make(WS_OVERLAPPEDWINDOW, 400, 300);
  sizes().asked = 0;
  ASSERT_NE(::SetWindowPos(window_, nullptr, 5, 6, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE), FALSE);
  EXPECT_EQ(sizes().asked, 0);
}

TEST_F(TrackingSizes, FramelessPopup_HasNoLimits) {
  sizes().least = {320, 210};
  make(WS_POPUP, 30, 20);
  expectSize(30, 20);
  resize(10, 5);
  expectSize(10, 5);
  EXPECT_EQ(sizes().asked, 0);
}

TEST_F(TrackingSizes, Limits_HoldWithoutACaption) {
  sizes().least = {150, 160};
  make(WS_OVERLAPPEDWINDOW, 400, 300);
  const LONG_PTR style = ::GetWindowLongPtrW(window_, GWL_STYLE);
  ::SetWindowLongPtrW(window_, GWL_STYLE, style & ~LONG_PTR{WS_CAPTION});
  ASSERT_NE(::SetWindowPos(window_, nullptr, 0, 0, 100, 100, SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED), FALSE);
  expectSize(150, 160);
}

}  // namespace
}  // namespace orvane::contract
