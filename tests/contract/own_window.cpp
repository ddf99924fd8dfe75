#include "contract/own_window.h"

#include <algorithm>
#include <map>
#include <utility>

namespace orvane::contract {
namespace {

constexpr UINT watchedMessages[] = {WM_NCCREATE, WM_CREATE, WM_SIZE,    WM_MOVE,      WM_ACTIVATE,
                                    WM_SETFOCUS, WM_CLOSE,  WM_DESTROY, WM_NCDESTROY, WM_SHOWWINDOW};

std::vector<SeenMessage>& seen() {
  static std::vector<SeenMessage> messages;
  return messages;
}

std::map<UINT, LRESULT>& answers() {
  static std::map<UINT, LRESULT> known;
  return known;
}

bool isWatched(UINT message) {
  return message >= WM_APP ||
         std::find(std::begin(watchedMessages), std::end(watchedMessages), message) != std::end(watchedMessages);
}

void*& creationParameter() {
  static void* parameter = nullptr;
  return parameter;
}

LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (isWatched(message)) seen().push_back({window, message, wParam, lParam});
  if (message == WM_NCCREATE) creationParameter() = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams;
  const auto known = answers().find(message);
  return known != answers().end() ? known->second : ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

OwnClass::OwnClass(const wchar_t* name) : name_(name) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = watch;
  windowClass.hInstance = ::GetModuleHandleW(nullptr);
  windowClass.lpszClassName = name_.c_str();
  isRegistered_ = ::RegisterClassW(&windowClass) != 0;
}

OwnClass::~OwnClass() {
  if (isRegistered_) ::UnregisterClassW(name_.c_str(), ::GetModuleHandleW(nullptr));
}

HWND OwnClass::makeWindow(const wchar_t* title, void* parameter) const {
  return ::CreateWindowExW(0, name_.c_str(), title, WS_OVERLAPPEDWINDOW, 50, 60, 400, 300, nullptr, nullptr,
                           ::GetModuleHandleW(nullptr), parameter);
}

HWND OwnClass::makeChild(HWND parent) const {
  return ::CreateWindowExW(0, name_.c_str(), L"", WS_CHILD | WS_VISIBLE, 10, 20, 100, 50, parent, nullptr,
                           ::GetModuleHandleW(nullptr), nullptr);
}

std::vector<SeenMessage> takeSeen() { return std::exchange(seen(), {}); }

std::vector<UINT> takeSeenNumbers() {
  std::vector<UINT> numbers;
  for (const SeenMessage& entry : takeSeen()) numbers.push_back(entry.message);
  return numbers;
}

void* lastCreationParameter() { return creationParameter(); }

void answer(UINT message, LRESULT result) { answers()[message] = result; }

void answerNothing() { answers().clear(); }

}  // namespace orvane::contract
