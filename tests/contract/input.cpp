#include <windows.h>

#include <utility>
#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

class Input : public ContractTest {
 protected:
  Input() {
    answerNothing();
    window_ = class_.makeWindow();
    child_ = class_.makeChild(window_);
    ::ShowWindow(window_, SW_SHOWNORMAL);
    takeSeen();
  }
  ~Input() override { ::DestroyWindow(window_); }

  OwnClass class_{L"OrvaneContractInput"};
  HWND window_ = nullptr;
  HWND child_ = nullptr;
};

DWORD WINAPI stay(void*) {
  ::Sleep(100);
  return 0;
}

TEST_F(Input, Insertion_Fails_WithAWrongSize) {
  INPUT key{};
  key.type = INPUT_KEYBOARD;
  key.ki.wVk = 'A';
  EXPECT_EQ(::SendInput(1, &key, sizeof(INPUT) - 1), 0u);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Input, Insertion_Fails_WithoutAnEvent) {
  INPUT key{};
  EXPECT_EQ(::SendInput(0, &key, sizeof(INPUT)), 0u);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Input, Insertion_CountsItsEvents) {
  INPUT keys[2] = {};
  for (INPUT& key : keys) {
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = VK_SHIFT;
  }
  keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
  EXPECT_EQ(::SendInput(2, keys, sizeof(INPUT)), 2u);
}

TEST_F(Input, Attachment_Fails_WithTheOwnThread) {
  const DWORD own = ::GetCurrentThreadId();
  EXPECT_EQ(::AttachThreadInput(own, own, TRUE), FALSE);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Input, Attachment_Fails_WithAnUnknownThread) {
  EXPECT_EQ(::AttachThreadInput(::GetCurrentThreadId(), 0xFFFFFFF0, TRUE), FALSE);
}

TEST_F(Input, Detachment_Fails_WithoutAnAttachment) {
  DWORD threadId = 0;
  const HANDLE thread = ::CreateThread(nullptr, 0, stay, nullptr, 0, &threadId);
  ASSERT_NE(thread, nullptr);
  EXPECT_EQ(::AttachThreadInput(::GetCurrentThreadId(), threadId, FALSE), FALSE);
  ::CloseHandle(thread);
}

TEST_F(Input, Focus_GoesToAChild_AndSaysWhereItWas) {
  ::SetFocus(window_);
  takeSeen();
  EXPECT_EQ(::SetFocus(child_), window_);
  std::vector<std::pair<HWND, UINT>> focused;
  for (const SeenMessage& entry : takeSeen()) {
    if (entry.message == WM_SETFOCUS) focused.emplace_back(entry.window, entry.message);
  }
  EXPECT_EQ(focused, (std::vector<std::pair<HWND, UINT>>{{child_, WM_SETFOCUS}}));
  EXPECT_EQ(::SetFocus(child_), child_);
}

TEST_F(Input, Focus_Fails_WithADeadWindow) {
  const HWND other = class_.makeWindow();
  ::DestroyWindow(other);
  EXPECT_EQ(::SetFocus(other), nullptr);
  EXPECT_EQ(::SetActiveWindow(other), nullptr);
}

}  // namespace
}  // namespace orvane::contract
