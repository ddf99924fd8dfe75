#include <windows.h>

#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

struct ActivationSeen {
  HWND window = nullptr;
  bool isActive = false;
  HWND other = nullptr;
  bool operator==(const ActivationSeen&) const = default;
};

std::vector<ActivationSeen> takeActivations() {
  std::vector<ActivationSeen> found;
  for (const SeenMessage& entry : takeSeen()) {
    if (entry.message != WM_ACTIVATE) continue;
    found.push_back({entry.window, LOWORD(entry.wParam) != WA_INACTIVE, reinterpret_cast<HWND>(entry.lParam)});
  }
  return found;
}

class Activation : public ContractTest {
 protected:
  Activation() {
    answerNothing();
    first_ = class_.makeWindow(L"first");
    second_ = class_.makeWindow(L"second");
    ::ShowWindow(first_, SW_SHOWNORMAL);
    ::SetForegroundWindow(first_);
    takeSeen();
  }
  ~Activation() override {
    ::DestroyWindow(second_);
    ::DestroyWindow(first_);
  }

  static GUITHREADINFO infoOf(DWORD threadId) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    EXPECT_NE(::GetGUIThreadInfo(threadId, &info), FALSE);
    return info;
  }

  OwnClass class_{L"OrvaneContractActivation"};
  HWND first_ = nullptr;
  HWND second_ = nullptr;
};

TEST_F(Activation, ShowingWithoutActivation_LeavesTheActiveWindow) {
  EXPECT_EQ(::ShowWindow(second_, SW_SHOWNOACTIVATE), FALSE);
  EXPECT_NE(::IsWindowVisible(second_), FALSE);
  EXPECT_EQ(::GetForegroundWindow(), first_);
  EXPECT_TRUE(takeActivations().empty());
}

TEST_F(Activation, ShowingWithoutActivation_RestoresAnIconicWindow) {
  ::ShowWindow(second_, SW_SHOWNOACTIVATE);
  ::ShowWindow(second_, SW_MINIMIZE);
  EXPECT_NE(::ShowWindow(second_, SW_SHOWNOACTIVATE), FALSE);
  EXPECT_EQ(::IsIconic(second_), FALSE);
  EXPECT_EQ(::GetForegroundWindow(), first_);
}

TEST_F(Activation, PlacingWithoutActivation_LeavesTheActiveWindow) {
  constexpr UINT shownOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_SHOWWINDOW;
  ASSERT_NE(::SetWindowPos(second_, first_, 0, 0, 0, 0, shownOnly), FALSE);
  EXPECT_NE(::IsWindowVisible(second_), FALSE);
  EXPECT_EQ(::GetForegroundWindow(), first_);
  EXPECT_TRUE(takeActivations().empty());
}

TEST_F(Activation, OwnWindows_NameEachOther) {
  ::ShowWindow(second_, SW_SHOWNOACTIVATE);
  takeSeen();
  ASSERT_NE(::SetForegroundWindow(second_), FALSE);
  EXPECT_EQ(takeActivations(), (std::vector<ActivationSeen>{{first_, false, second_}, {second_, true, first_}}));
  ASSERT_NE(::SetForegroundWindow(first_), FALSE);
  EXPECT_EQ(takeActivations(), (std::vector<ActivationSeen>{{second_, false, first_}, {first_, true, second_}}));
}

TEST_F(Activation, HiddenWindow_HandsTheForegroundOn) {
  ::ShowWindow(second_, SW_SHOWNOACTIVATE);
  ASSERT_NE(::SetForegroundWindow(second_), FALSE);
  ::ShowWindow(second_, SW_HIDE);
  EXPECT_EQ(::GetForegroundWindow(), first_);
}

TEST_F(Activation, ThreadInfo_OfTheOwnThread_NamesItsActiveAndFocusedWindow) {
  const GUITHREADINFO info = infoOf(::GetCurrentThreadId());
  EXPECT_EQ(info.hwndActive, first_);
  EXPECT_EQ(info.hwndFocus, first_);
  EXPECT_EQ(info.hwndCapture, nullptr);
}

TEST_F(Activation, ThreadInfo_OfAnotherThread_NamesTheWindowInFront) {
  const HWND other = openOtherProgram();
  bringToFront(other);
  EXPECT_EQ(infoOf(::GetWindowThreadProcessId(other, nullptr)).hwndActive, other);
  EXPECT_EQ(infoOf(::GetWindowThreadProcessId(other, nullptr)).hwndFocus, other);
}

TEST_F(Activation, ThreadInfo_NeedsItsSizeAndAThread) {
  GUITHREADINFO info{};
  EXPECT_EQ(::GetGUIThreadInfo(::GetCurrentThreadId(), &info), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
  info.cbSize = sizeof info;
  EXPECT_EQ(::GetGUIThreadInfo(0xFFFFFFFC, &info), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Activation, Capture_CanBeGivenBack_WhenNobodyHasIt) { EXPECT_NE(::ReleaseCapture(), FALSE); }

}  // namespace
}  // namespace orvane::contract
