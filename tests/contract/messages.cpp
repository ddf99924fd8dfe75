#include <windows.h>

#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

class Messages : public ContractTest {
 protected:
  Messages() {
    answerNothing();
    window_ = class_.makeWindow();
    takeSeen();
  }
  ~Messages() override { ::DestroyWindow(window_); }

  // Handles what waits up to the quit message; returns the quit message's value.
  WPARAM loop() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    return message.wParam;
  }

  OwnClass class_{L"OrvaneContractMessages"};
  HWND window_ = nullptr;
};

struct LatePost {
  HWND window;
};

DWORD WINAPI postLater(void* plan) {
  ::Sleep(40);
  ::PostMessageW(static_cast<LatePost*>(plan)->window, WM_APP + 9, 0, 0);
  return 0;
}

TEST_F(Messages, Sent_IsHandledBeforeTheCallReturns) {
  answer(WM_APP + 1, 77);
  EXPECT_EQ(::SendMessageW(window_, WM_APP + 1, 5, -6), 77);
  const std::vector<SeenMessage> messages = takeSeen();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].wParam, 5u);
  EXPECT_EQ(messages[0].lParam, -6);
}

TEST_F(Messages, Posted_WaitForTheLoop_InOrder) {
  ASSERT_NE(::PostMessageW(window_, WM_APP + 1, 0, 0), FALSE);
  ASSERT_NE(::PostMessageW(window_, WM_APP + 2, 0, 0), FALSE);
  EXPECT_TRUE(takeSeen().empty());
  ::PostQuitMessage(3);
  EXPECT_EQ(loop(), 3u);
  EXPECT_EQ(takeSeenNumbers(), (std::vector<UINT>{WM_APP + 1, WM_APP + 2}));
}

TEST_F(Messages, Quit_ComesBehindWhatWaits) {
  ::PostQuitMessage(0);
  ::PostMessageW(window_, WM_APP + 1, 0, 0);
  loop();
  EXPECT_EQ(takeSeenNumbers(), std::vector<UINT>{WM_APP + 1});
}

TEST_F(Messages, Loop_WaitsForAnotherThread) {
  LatePost plan{window_};
  const HANDLE thread = ::CreateThread(nullptr, 0, postLater, &plan, 0, nullptr);
  ASSERT_NE(thread, nullptr);
  const ULONGLONG before = ::GetTickCount64();
  MSG message{};
  ASSERT_GT(::GetMessageW(&message, nullptr, 0, 0), 0);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_APP + 9));
  EXPECT_EQ(message.hwnd, window_);
  EXPECT_GE(::GetTickCount64() - before, 20u);
  ::CloseHandle(thread);
}

TEST_F(Messages, PostedToAWindowThatWent_ReachNobody) {
  const HWND other = class_.makeWindow();
  ::PostMessageW(window_, WM_APP + 1, 0, 0);
  ::DestroyWindow(other);
  takeSeen();
  MSG message{};
  message.hwnd = other;
  message.message = WM_APP + 5;
  EXPECT_EQ(::DispatchMessageW(&message), 0);
  EXPECT_TRUE(takeSeen().empty());
}

TEST_F(Messages, Close_DestroysTheWindow_UnlessItSaysOtherwise) {
  answer(WM_CLOSE, 0);
  ::SendMessageW(window_, WM_CLOSE, 0, 0);
  EXPECT_NE(::IsWindow(window_), FALSE);
  answerNothing();
  ::SendMessageW(window_, WM_CLOSE, 0, 0);
  EXPECT_EQ(::IsWindow(window_), FALSE);
}

TEST_F(Messages, Sent_ToADeadWindow_Fails) {
  ::DestroyWindow(window_);
  EXPECT_EQ(::SendMessageW(window_, WM_APP, 0, 0), 0);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

}  // namespace
}  // namespace orvane::contract
