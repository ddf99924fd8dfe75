#include "contract/drawn_window.h"

#include <utility>

namespace orvane::contract {
namespace {

constexpr const wchar_t* className = L"OrvaneContractDrawing";
constexpr UINT lastMessage = WM_APP + 99;
constexpr DWORD quietMs = 50;

Handler& currentHandler() {
  static Handler handler;
  return handler;
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  const Handler handler = currentHandler();
  if (handler && handler(window, message, wParam, lParam, result)) return result;
  return ::DefWindowProcW(window, message, wParam, lParam);
}

DWORD WINAPI postLastMessage(void* window) {
  ::Sleep(quietMs);
  ::PostMessageW(static_cast<HWND>(window), lastMessage, 0, 0);
  return 0;
}

}  // namespace

DrawnWindow::DrawnWindow(UINT classStyle) {
  const HINSTANCE instance = ::GetModuleHandleW(nullptr);
  WNDCLASSW windowClass{};
  windowClass.style = classStyle;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = className;
  ::RegisterClassW(&windowClass);
  window_ =
      ::CreateWindowExW(0, className, L"", WS_OVERLAPPEDWINDOW, 50, 60, 400, 300, nullptr, nullptr, instance, nullptr);
}

DrawnWindow::~DrawnWindow() {
  currentHandler() = nullptr;
  ::DestroyWindow(window_);
  ::UnregisterClassW(className, ::GetModuleHandleW(nullptr));
}

void DrawnWindow::handle(Handler handler) { currentHandler() = std::move(handler); }

bool handleWaiting(HWND window) {
  const HANDLE thread = ::CreateThread(nullptr, 0, postLastMessage, window, 0, nullptr);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != lastMessage) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  ::CloseHandle(thread);
  return message.message == lastMessage;
}

}  // namespace orvane::contract
