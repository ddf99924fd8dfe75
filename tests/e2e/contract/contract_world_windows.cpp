// The world of the contract on the platform itself: real windows, a second process, the real
// clipboard and a person's keys.
#include "contract/contract_world.h"

#include <cstring>
#include <deque>

#include "menu_person.h"
#include "other_program.h"

namespace orvane::contract {
namespace {

constexpr int clipboardAttempts = 100;
constexpr DWORD betweenAttemptsMs = 10;
constexpr DWORD frontMs = 1000;

std::deque<OtherProgram>& otherPrograms() {
  static std::deque<OtherProgram> programs;
  return programs;
}

// What an earlier test left waiting would be taken for this one's.
void dropWaitingMessages() {
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_PAINT) ::DispatchMessageW(&message);
  }
}

// As another program leaves it: without an owner.
void replaceClipboard(const std::wstring* text) {
  bool isOpen = false;
  for (int attempt = 0; attempt < clipboardAttempts && !isOpen; ++attempt) {
    isOpen = ::OpenClipboard(nullptr) != FALSE;
    if (!isOpen) ::Sleep(betweenAttemptsMs);
  }
  ASSERT_TRUE(isOpen);
  EXPECT_NE(::EmptyClipboard(), FALSE);
  if (text != nullptr) {
    const SIZE_T bytes = (text->size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(::GlobalLock(block), text->c_str(), bytes);
    ::GlobalUnlock(block);
    EXPECT_EQ(::SetClipboardData(CF_UNICODETEXT, block), block);
  }
  EXPECT_NE(::CloseClipboard(), FALSE);
}

}  // namespace

ContractTest::ContractTest() {
  otherPrograms().clear();
  dropWaitingMessages();
  expectMenus();
}

void ContractTest::leaveOnClipboard(const std::wstring& text) { replaceClipboard(&text); }

void ContractTest::leaveClipboardEmpty() { replaceClipboard(nullptr); }

void ContractTest::chooseInNextMenu(int entry) { chooseInNextMenuByKeys(entry); }

HWND ContractTest::openOtherProgram() { return otherPrograms().emplace_back().window(); }

void ContractTest::bringToFront(HWND window) {
  bool isOther = false;
  for (const OtherProgram& program : otherPrograms()) {
    if (program.window() != window) continue;
    program.takeFront();
    isOther = true;
  }
  if (!isOther) ::SetForegroundWindow(window);
  for (DWORD waitedMs = 0; waitedMs < frontMs && ::GetForegroundWindow() != window; waitedMs += betweenAttemptsMs) {
    ::Sleep(betweenAttemptsMs);
  }
}

}  // namespace orvane::contract

int main(int argumentCount, char** arguments) {
  if (orvane::contract::OtherProgram::isAskedFor(argumentCount, arguments))
    return orvane::contract::OtherProgram::run();
  ::testing::InitGoogleTest(&argumentCount, arguments);
  return RUN_ALL_TESTS();
}
