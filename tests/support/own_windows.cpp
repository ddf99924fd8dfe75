#include "support/own_windows.h"

#include <utility>

namespace orvane::simulation {
namespace {

std::vector<OwnWindows::Seen>& seen() {
  static std::vector<OwnWindows::Seen> messages;
  return messages;
}

LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  seen().push_back({window, message, wParam, lParam});
  return ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

OwnWindows::OwnWindows(std::vector<std::wstring> classNames) : classNames_(std::move(classNames)) {
  seen().clear();
  for (const std::wstring& name : classNames_) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = watch;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name.c_str();
    ::RegisterClassW(&windowClass);
  }
}

OwnWindows::~OwnWindows() {
  for (const HWND window : made_) ::DestroyWindow(window);
  for (const std::wstring& name : classNames_) ::UnregisterClassW(name.c_str(), ::GetModuleHandleW(nullptr));
}

HWND OwnWindows::make(const wchar_t* className, const Rectangle& bounds) {
  made_.push_back(::CreateWindowExW(0, className, L"", WS_OVERLAPPEDWINDOW, bounds.left, bounds.top, bounds.width(),
                                    bounds.height(), nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr));
  return made_.back();
}

void OwnWindows::handleWaiting() {
  ::PostQuitMessage(0);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
}

std::vector<OwnWindows::Seen> OwnWindows::takeSeen() { return std::exchange(seen(), {}); }

std::vector<UINT> OwnWindows::takeMessages() {
  std::vector<UINT> numbers;
  for (const Seen& entry : takeSeen()) numbers.push_back(entry.message);
  return numbers;
}

}  // namespace orvane::simulation
