#include <windows.h>

#include <algorithm>
#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

constexpr UINT orderOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;

class ZOrder : public ContractTest {
 protected:
  ~ZOrder() override {
    for (const HWND window : made_) ::DestroyWindow(window);
  }

  HWND make() {
    made_.push_back(class_.makeWindow());
    return made_.back();
  }

  // The windows of this test, as a walk from the top finds them.
  std::vector<HWND> walk() const {
    std::vector<HWND> found;
    for (HWND window = ::GetTopWindow(nullptr); window != nullptr; window = ::GetWindow(window, GW_HWNDNEXT)) {
      if (std::find(made_.begin(), made_.end(), window) != made_.end()) found.push_back(window);
    }
    return found;
  }

  OwnClass class_{L"OrvaneContractOrder"};
  std::vector<HWND> made_;
};

TEST_F(ZOrder, Walk_MeetsEveryWindowOnce_HiddenOnesToo) {
  const HWND hidden = make();
  const HWND shown = make();
  ::ShowWindow(shown, SW_SHOWNOACTIVATE);
  ASSERT_NE(::SetWindowPos(hidden, HWND_TOP, 0, 0, 0, 0, orderOnly), FALSE);
  ASSERT_NE(::SetWindowPos(shown, hidden, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(walk(), (std::vector<HWND>{hidden, shown}));
  ASSERT_NE(::SetWindowPos(hidden, shown, 0, 0, 0, 0, orderOnly), FALSE);
  EXPECT_EQ(walk(), (std::vector<HWND>{shown, hidden}));
}

TEST_F(ZOrder, Walk_EndsWithNull_WithoutAnError) {
  HWND last = make();
  ::SetLastError(77);
  for (HWND next = last; next != nullptr; next = ::GetWindow(next, GW_HWNDNEXT)) last = next;
  EXPECT_EQ(::GetWindow(last, GW_HWNDNEXT), nullptr);
  EXPECT_EQ(::GetLastError(), 77u);
}

TEST_F(ZOrder, Next_OfADeadWindow_IsRefused) {
  const HWND window = class_.makeWindow();
  ::DestroyWindow(window);
  EXPECT_EQ(::GetWindow(window, GW_HWNDNEXT), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST_F(ZOrder, PlacingBehindAWindow_CanShowTheWindowToo) {
  const HWND above = make();
  const HWND window = make();
  ASSERT_NE(::SetWindowPos(window, above, 0, 0, 0, 0, orderOnly | SWP_SHOWWINDOW), FALSE);
  EXPECT_NE(::IsWindowVisible(window), FALSE);
  EXPECT_EQ(walk(), (std::vector<HWND>{above, window}));
}

TEST_F(ZOrder, PlacingOnTop_KeepsThePlaceAndSize) {
  const HWND window = make();
  make();
  ASSERT_NE(::SetWindowPos(window, nullptr, 1, 2, 3, 4, orderOnly), FALSE);
  EXPECT_EQ(walk().front(), window);
  RECT bounds{};
  ::GetWindowRect(window, &bounds);
  EXPECT_EQ(bounds.left, 50);
  EXPECT_EQ(bounds.right, 450);
}

TEST_F(ZOrder, BehindADeadWindow_NothingIsPlaced) {
  const HWND dead = class_.makeWindow();
  ::DestroyWindow(dead);
  const HWND window = make();
  EXPECT_EQ(::SetWindowPos(window, dead, 0, 0, 0, 0, orderOnly | SWP_SHOWWINDOW), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
  EXPECT_EQ(::IsWindowVisible(window), FALSE);
}

}  // namespace
}  // namespace orvane::contract
