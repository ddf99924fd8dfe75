#include "desktop/synthetic_keys.h"

#include <array>
#include <cstddef>
#include <vector>

#include "composer/input_attachment.h"
#include "composer/key_events.h"
#include "desktop/previous_window.h"

namespace orvane {
namespace {

constexpr DWORD foregroundWaitMs = 150;

struct HotKey {
  std::string_view name;
  std::array<WORD, 3> keys;
  std::size_t keyCount;
};

constexpr std::array<HotKey, 8> hotKeys{{
    {"Win+Shift+R", {VK_LWIN, VK_SHIFT, 'R'}, 3},
    {"Win+Alt+R", {VK_LWIN, VK_MENU, 'R'}, 3},
    {"Alt+PrtSc", {VK_MENU, VK_SNAPSHOT}, 2},
    {"Win+PrtSc", {VK_LWIN, VK_SNAPSHOT}, 2},
    {"Win+D", {VK_LWIN, 'D'}, 2},
    {"Win+E", {VK_LWIN, 'E'}, 2},
    {"Win+H", {VK_LWIN, 'H'}, 2},
    {"Win+V", {VK_LWIN, 'V'}, 2},
}};
constexpr std::array<WORD, 2> newLineKeys = {VK_SHIFT, VK_RETURN};

// The focus goes back to the control that held it, not just to its top-level window.
void focusFormerControl(DWORD threadId) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (::GetGUIThreadInfo(threadId, &info) != FALSE && info.hwndFocus != nullptr) {
    ::SetFocus(info.hwndFocus);
  }
}

void bringToFront(HWND window) {
  const DWORD threadId = ::GetWindowThreadProcessId(window, nullptr);
  const InputAttachment attachment(::GetCurrentThreadId(), threadId);
  ::BringWindowToTop(window);
  ::SetForegroundWindow(window);
  ::SetActiveWindow(window);
  if (attachment.isAttached()) {
    focusFormerControl(threadId);
  }
}

}  // namespace

bool sendKeyChord(std::span<const WORD> virtualKeys) {
  if (virtualKeys.empty()) {
    return false;
  }
  std::vector<INPUT> events;
  events.reserve(2 * virtualKeys.size());
  for (const WORD key : virtualKeys) {
    events.push_back(makeKeyEvent(key, false));
  }
  for (auto key = virtualKeys.rbegin(); key != virtualKeys.rend(); ++key) {
    events.push_back(makeKeyEvent(*key, true));
  }
  const auto count = static_cast<UINT>(events.size());
  return ::SendInput(count, events.data(), sizeof(INPUT)) == count;
}

bool sendWindowsHotKey(std::string_view keys) {
  for (const HotKey& hotKey : hotKeys) {
    if (hotKey.name == keys) {
      return sendKeyChord(std::span(hotKey.keys).first(hotKey.keyCount));
    }
  }
  return false;
}

bool sendNewLineToPreviousWindow(HWND mainWindow) {
  const HWND window = previousWindow();
  if (window == nullptr || ::IsWindow(window) == FALSE || window == mainWindow) {
    return false;
  }
  if (::IsIconic(window) != FALSE) {
    ::ShowWindow(window, SW_RESTORE);
  }
  bringToFront(window);
  ::Sleep(foregroundWaitMs);
  if (::GetAncestor(::GetForegroundWindow(), GA_ROOT) != window) {
    return false;
  }
  return sendKeyChord(newLineKeys);
}

}  // namespace orvane
