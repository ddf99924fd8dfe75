// A program with a window and a message loop and nothing else: what any program of its kind costs.
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
  if (::RegisterClassW(&description) == 0 || ::CreateWindowExW(0, className, L"", WS_OVERLAPPEDWINDOW, 10, 10, 1280,
                                                               720, nullptr, nullptr, instance, nullptr) == nullptr) {
    return EXIT_FAILURE;
  }
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return EXIT_SUCCESS;
}
