#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "desktop/clean_background_state.h"
#include "embedding/encodable_value.h"
#include "support/simulated_desktop.h"

namespace orvane::desktop_tests {

inline constexpr DWORD internalError = 1359;  // the last error that a faulted call leaves

// What outlives a call in the process starts anew with each test.
class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest() { cleanBackgroundState() = {}; }
  ~DesktopTest() override { cleanBackgroundState() = {}; }
};

inline EncodableMap mapOf(std::initializer_list<std::pair<const char*, EncodableValue>> entries) {
  EncodableMap map;
  for (const auto& [key, value] : entries) {
    map[EncodableValue(key)] = value;
  }
  return map;
}

inline std::vector<LONG> sides(const RECT& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

inline std::vector<LONG> sidesOf(HWND window) {
  RECT bounds{};
  EXPECT_TRUE(::GetWindowRect(window, &bounds));
  return sides(bounds);
}

inline std::wstring titleOf(HWND window) {
  wchar_t title[128] = {};
  ::GetWindowTextW(window, title, 128);
  return title;
}

inline DWORD styleOf(HWND window) { return static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE)); }

// A desktop of one monitor that is its own work area; `more` are further members, each with a comma in front.
inline std::string oneMonitor(const RECT& work, int dpi, const std::string& more = "") {
  const std::string bounds = "[" + std::to_string(work.left) + ", " + std::to_string(work.top) + ", " +
                             std::to_string(work.right) + ", " + std::to_string(work.bottom) + "]";
  return R"({"monitors": [{"bounds": )" + bounds + R"(, "work": )" + bounds + R"(, "dpi": )" + std::to_string(dpi) +
         "}]" + more + "}";
}

// A fault of one call, for the calls about one window where it is named.
inline std::string faultOf(const std::string& call, const std::string& result, const std::string& window = "") {
  return R"([{"call": ")" + call + R"(", "times": 100, "result": )" + result +
         (window.empty() ? std::string() : R"(, "window": ")" + window + R"(")") + "}]";
}

// A top-level window of the calling thread without a least size: it takes the size that it is asked
// to. The first one's class is the desktop's "main".
class PlainWindow {
 public:
  explicit PlainWindow(const RECT& bounds = {100, 100, 500, 400}, const wchar_t* className = L"PlainWindow",
                       DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, DWORD exStyle = 0) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.lpszClassName = className;
    ::RegisterClassW(&windowClass);
    window_ =
        ::CreateWindowExW(exStyle, className, L"Plain", style, bounds.left, bounds.top, bounds.right - bounds.left,
                          bounds.bottom - bounds.top, nullptr, nullptr, nullptr, nullptr);
  }
  ~PlainWindow() { ::DestroyWindow(window_); }
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;

  HWND get() const { return window_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_GETMINMAXINFO) {
      auto& limits = *reinterpret_cast<MINMAXINFO*>(lparam);
      limits.ptMinTrackSize = {1, 1};
      limits.ptMaxTrackSize = {1'000'000, 1'000'000};
      return 0;
    }
    return ::DefWindowProcW(window, message, wparam, lparam);
  }

  HWND window_ = nullptr;
};

inline void moveTo(HWND window, const RECT& bounds) {
  ::SetWindowPos(window, nullptr, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// Lets the window's thread handle all that waits for it.
inline void handleWaiting(HWND window) {
  constexpr WPARAM endMark = 0x454E44;
  ::PostMessageW(window, WM_NULL, endMark, 0);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0 && (message.message != WM_NULL || message.wParam != endMark)) {
    ::DispatchMessageW(&message);
  }
}

}  // namespace orvane::desktop_tests
