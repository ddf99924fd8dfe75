#include <windows.h>

#include <utility>
#include <vector>

#include "contract/contract_world.h"
#include "contract/own_window.h"

namespace orvane::contract {
namespace {

struct Event {
  HWINEVENTHOOK hook = nullptr;
  DWORD event = 0;
  HWND window = nullptr;
  LONG objectId = 0;
  LONG childId = 0;
  DWORD threadId = 0;
};

std::vector<Event>& events() {
  static std::vector<Event> seen;
  return seen;
}

void CALLBACK note(HWINEVENTHOOK hook, DWORD event, HWND window, LONG objectId, LONG childId, DWORD threadId, DWORD) {
  events().push_back({hook, event, window, objectId, childId, threadId});
}

class WinEventHook : public ContractTest {
 protected:
  WinEventHook() {
    events().clear();
    hook_ = install();
  }
  ~WinEventHook() override {
    if (hook_ != nullptr) ::UnhookWinEvent(hook_);
    ::DestroyWindow(window_);
  }

  static HWINEVENTHOOK install() {
    return ::SetWinEventHook(EVENT_SYSTEM_FOREGROUND, EVENT_SYSTEM_FOREGROUND, nullptr, note, 0, 0,
                             WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
  }

  static std::vector<Event> eventsOfTheLoop() {
    ::PostQuitMessage(0);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
    return std::exchange(events(), {});
  }

  OwnClass class_{L"OrvaneContractHook"};
  HWND window_ = class_.makeWindow();
  HWND other_ = openOtherProgram();
  HWINEVENTHOOK hook_ = nullptr;
};

TEST_F(WinEventHook, Callback_NamesTheOtherProgramsWindow_InTheLoop) {
  ASSERT_NE(hook_, nullptr);
  bringToFront(other_);
  EXPECT_TRUE(events().empty());
  const std::vector<Event> seen = eventsOfTheLoop();
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0].hook, hook_);
  EXPECT_EQ(seen[0].event, static_cast<DWORD>(EVENT_SYSTEM_FOREGROUND));
  EXPECT_EQ(seen[0].window, other_);
  EXPECT_EQ(seen[0].objectId, OBJID_WINDOW);
  EXPECT_EQ(seen[0].childId, CHILDID_SELF);
  EXPECT_EQ(seen[0].threadId, ::GetWindowThreadProcessId(other_, nullptr));
}

TEST_F(WinEventHook, Callback_ComesToo_WhenTheProgramItselfMovesTheForeground) {
  ::ShowWindow(window_, SW_SHOWNORMAL);
  ASSERT_NE(::SetForegroundWindow(other_), FALSE);
  EXPECT_TRUE(events().empty());
  EXPECT_EQ(eventsOfTheLoop().size(), 1u);
}

TEST_F(WinEventHook, OwnWindows_AreSkipped) {
  ::ShowWindow(window_, SW_SHOWNORMAL);
  ::SetForegroundWindow(window_);
  EXPECT_TRUE(eventsOfTheLoop().empty());
}

TEST_F(WinEventHook, Callback_ComesNoMore_OnceUnhooked) {
  EXPECT_NE(::UnhookWinEvent(hook_), FALSE);
  EXPECT_EQ(::UnhookWinEvent(std::exchange(hook_, nullptr)), FALSE);
  bringToFront(other_);
  EXPECT_TRUE(eventsOfTheLoop().empty());
}

TEST_F(WinEventHook, WaitingCallback_IsDropped_WhenItsHookGoes) {
  bringToFront(other_);
  EXPECT_NE(::UnhookWinEvent(std::exchange(hook_, nullptr)), FALSE);
  EXPECT_TRUE(eventsOfTheLoop().empty());
}

TEST_F(WinEventHook, EachHook_IsCalled) {
  const HWINEVENTHOOK second = install();
  EXPECT_NE(second, hook_);
  bringToFront(other_);
  EXPECT_EQ(eventsOfTheLoop().size(), 2u);
  EXPECT_NE(::UnhookWinEvent(second), FALSE);
}

}  // namespace
}  // namespace orvane::contract
