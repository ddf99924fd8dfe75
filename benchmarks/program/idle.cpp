// A program with a window that it shows, a message loop and nothing else: what any program of its kind costs.
#include <windows.h>

#include <cstdlib>

namespace {

constexpr const wchar_t* className = L"OrvaneIdle";

LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) {
    ::PostQuitMessage(0);
    return 0;
  }
  return ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int APIENTRY wWinMain(HINSTANCE instance, HINSTANCE, wchar_t*, int) {
  WNDCLASSW description{};
  description.lpfnWndProc = handleMessage;
  description.hInstance = instance;
  description.lpszClassName = className;
  if (::RegisterClassW(&description) == 0) return EXIT_FAILURE;
  const HWND window =
      ::CreateWindowExW(0, className, L"", WS_OVERLAPPEDWINDOW, 10, 10, 1280, 720, nullptr, nullptr, instance, nullptr);
  if (window == nullptr) return EXIT_FAILURE;
  // The host's is shown as well by the time that its loop first waits.
  ::ShowWindow(window, SW_SHOWNORMAL);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return EXIT_SUCCESS;
}
