#include "menu_person.h"

#include <windows.h>

#include <atomic>

namespace orvane::contract {
namespace {

constexpr const wchar_t* menuClass = L"#32768";
constexpr DWORD lookMs = 20;
// A person lets a menu be drawn first.
constexpr DWORD readMs = 150;
constexpr DWORD closeMs = 200;
constexpr int noEntry = 0;

std::atomic<int> nextEntry{noEntry};

bool isMenuOpen() {
  const HWND menu = ::FindWindowW(menuClass, nullptr);
  return menu != nullptr && ::IsWindowVisible(menu) != FALSE;
}

void press(WORD key) {
  INPUT events[2] = {};
  for (INPUT& event : events) {
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
  }
  events[1].ki.dwFlags = KEYEVENTF_KEYUP;
  ::SendInput(2, events, sizeof(INPUT));
}

DWORD WINAPI attend(void*) {
  for (;; ::Sleep(lookMs)) {
    if (!isMenuOpen()) continue;
    ::Sleep(readMs);
    if (!isMenuOpen()) continue;
    const int entry = nextEntry.exchange(noEntry);
    for (int step = 0; step < entry; ++step) press(VK_DOWN);
    press(entry == noEntry ? VK_ESCAPE : VK_RETURN);
    // The next menu may be open before anyone sees that this one went.
    for (DWORD waitedMs = 0; waitedMs < closeMs && isMenuOpen(); waitedMs += lookMs) ::Sleep(lookMs);
  }
}

}  // namespace

void expectMenus() {
  static const HANDLE thread = ::CreateThread(nullptr, 0, attend, nullptr, 0, nullptr);
  static_cast<void>(thread);
  nextEntry = noEntry;
}

void chooseInNextMenuByKeys(int entry) { nextEntry = entry; }

}  // namespace orvane::contract
