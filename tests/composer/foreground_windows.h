#pragma once

#include <windows.h>

#include <string>

#include "support/simulated_desktop.h"

namespace orvane {

// The desktop of the tests of the foreground: "editor" in front, "browser" below it. `browser` are
// further members of the browser's window, each with a comma in front.
inline std::string twoWindows(const std::string& browser = "", const std::string& faults = "[]",
                              const std::string& foreground = R"("editor")") {
  return R"({"windows": [{"id": "editor", "process": "editor.exe", "title": "Notes"},
                         {"id": "browser", "process": "chrome.exe", "title": "Plan - Claude")" +
         browser + R"(}], "foreground": )" + foreground + R"(, "faults": )" + faults + "}";
}

// What a rule of the browser's window does at a time.
inline std::string atTime(int ms, const std::string& actions) {
  return R"(, "rules": [{"on": {"time": )" + std::to_string(ms) + R"(}, "do": )" + actions + "}]";
}

// A window of the calling thread; the desktop knows it as "main".
class OwnWindow {
 public:
  OwnWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.lpszClassName = L"OwnWindow";
    ::RegisterClassW(&windowClass);
    window_ = ::CreateWindowExW(0, L"OwnWindow", L"Own", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                nullptr, nullptr, nullptr);
  }
  ~OwnWindow() { ::DestroyWindow(window_); }
  OwnWindow(const OwnWindow&) = delete;
  OwnWindow& operator=(const OwnWindow&) = delete;

  HWND get() const { return window_; }

 private:
  HWND window_ = nullptr;
};

}  // namespace orvane
