#include "flutter_windows/menu_person.h"

#include <cwchar>
#include <string>
#include <vector>

#include "common/scenario_of_run.h"

namespace orvane::standins {
namespace {

constexpr const wchar_t* menuClass = L"#32768";
constexpr UINT getMenuMessage = 0x01E1;  // MN_GETHMENU
constexpr UINT answerTimeoutMs = 1'000;
constexpr DWORD betweenLooksMs = 5;
constexpr int longestForegroundWaitMs = 1'000;
constexpr int longestClosingWaitMs = 2'000;
constexpr int keyRounds = 3;

HWND shownMenuOf(DWORD thread) {
  HWND menu = nullptr;
  while ((menu = ::FindWindowExW(nullptr, menu, menuClass, nullptr)) != nullptr) {
    if (::GetWindowThreadProcessId(menu, nullptr) == thread && ::IsWindowVisible(menu) != FALSE) return menu;
  }
  return nullptr;
}

int countEntries(HWND menuWindow) {
  DWORD_PTR menu = 0;
  ::SendMessageTimeoutW(menuWindow, getMenuMessage, 0, 0, SMTO_NORMAL, answerTimeoutMs, &menu);
  return ::GetMenuItemCount(reinterpret_cast<HMENU>(menu));
}

void addStroke(std::vector<INPUT>& inputs, WORD virtualKey) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  inputs.push_back(input);
  input.ki.dwFlags = KEYEVENTF_KEYUP;
  inputs.push_back(input);
}

void press(const std::vector<WORD>& keys) {
  std::vector<INPUT> inputs;
  for (const WORD key : keys) addStroke(inputs, key);
  ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

std::vector<WORD> keysFor(std::optional<int> entry, int entries) {
  if (!entry || *entry > entries) return {VK_ESCAPE};
  std::vector<WORD> keys(static_cast<std::size_t>(*entry), VK_DOWN);
  keys.push_back(VK_RETURN);
  return keys;
}

// How long the person looks at the menu before the last key; 0 unless somebody wants to see it.
int lookingMs() {
  const std::wstring text = environmentText(L"ORVANE_MENU_LOOK_MS");
  return text.empty() ? 0 : static_cast<int>(std::wcstol(text.c_str(), nullptr, 10));
}

void cancelMenuOf(DWORD thread) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (::GetGUIThreadInfo(thread, &info) != FALSE) ::PostMessageW(info.hwndMenuOwner, WM_CANCELMODE, 0, 0);
}

template <typename Condition>
bool await(int longestMs, const Condition& holds) {
  for (int waitedMs = 0; waitedMs < longestMs; waitedMs += static_cast<int>(betweenLooksMs)) {
    if (holds()) return true;
    ::Sleep(betweenLooksMs);
  }
  return holds();
}

// Keys go to the thread in front, which a menu's owner is.
bool isInFront(DWORD thread) { return ::GetWindowThreadProcessId(::GetForegroundWindow(), nullptr) == thread; }

}  // namespace

MenuPerson::MenuPerson(std::optional<int> entry)
    : entry_(entry), hostThread_(::GetCurrentThreadId()), thread_([this] { watch(); }) {}

MenuPerson::~MenuPerson() {
  isOver_ = true;
  thread_.join();
}

HWND MenuPerson::awaitMenu() const {
  HWND menu = nullptr;
  while (!isOver_ && (menu = shownMenuOf(hostThread_)) == nullptr) ::Sleep(betweenLooksMs);
  return menu;
}

void MenuPerson::watch() {
  const HWND menu = awaitMenu();
  if (menu == nullptr) return;
  hasSeenMenu_ = true;
  await(longestForegroundWaitMs, [this] { return isOver_ || isInFront(hostThread_); });
  std::vector<WORD> keys = keysFor(entry_, countEntries(menu));
  const auto isClosed = [this] { return isOver_ || shownMenuOf(hostThread_) == nullptr; };
  if (const int longestMs = lookingMs()) {
    press({keys.begin(), keys.end() - 1});
    await(longestMs, isClosed);
    keys = {keys.back()};
  }
  for (int round = 0; round < keyRounds && !isClosed(); ++round) {
    press(keys);
    if (await(longestClosingWaitMs, isClosed)) return;
    // A menu that stays open after its keys is dismissed: its call must not hang.
    keys = {VK_ESCAPE};
  }
  if (!isClosed()) cancelMenuOf(hostThread_);
}

}  // namespace orvane::standins
