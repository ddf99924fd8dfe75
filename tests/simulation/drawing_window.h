#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <utility>

namespace orvane::simulation {

// A window of the host's, "main", of 384 by 261 pixels inside, whose messages go to a handler. It is
// hidden at first.
class DrawingWindow {
 public:
  using Handler = std::function<LRESULT(HWND window, UINT message, WPARAM wParam, LPARAM lParam)>;

  explicit DrawingWindow(UINT classStyle = 0) {
    WNDCLASSW windowClass{};
    windowClass.style = classStyle;
    windowClass.lpfnWndProc = procedure;
    windowClass.lpszClassName = className;
    EXPECT_NE(::RegisterClassW(&windowClass), 0);
    window_ =
        ::CreateWindowExW(0, className, L"", WS_OVERLAPPEDWINDOW, 50, 60, 400, 300, nullptr, nullptr, nullptr, nullptr);
  }
  ~DrawingWindow() {
    handler() = nullptr;
    ::DestroyWindow(window_);
    ::UnregisterClassW(className, nullptr);
  }
  DrawingWindow(const DrawingWindow&) = delete;
  DrawingWindow& operator=(const DrawingWindow&) = delete;

  HWND get() const { return window_; }
  void handle(Handler newHandler) { handler() = std::move(newHandler); }
  void show() { ::ShowWindow(window_, SW_SHOWNORMAL); }

 private:
  static constexpr const wchar_t* className = L"DrawingWindow";

  static Handler& handler() {
    static Handler current;
    return current;
  }

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Handler current = handler();
    return current ? current(window, message, wParam, lParam) : ::DefWindowProcW(window, message, wParam, lParam);
  }

  HWND window_ = nullptr;
};

// The next message of the loop, handled; false for the quit message.
inline bool handleNextMessage() {
  MSG message{};
  if (::GetMessageW(&message, nullptr, 0, 0) <= 0) return false;
  ::DispatchMessageW(&message);
  return true;
}

inline HFONT makeFont(int characterHeight) {
  return ::CreateFontW(-characterHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"Segoe UI");
}

}  // namespace orvane::simulation
