#pragma once

#include <windows.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/simulated_desktop.h"
#include "windows/call.h"
#include "windows/state.h"

namespace orvane {

// The desktop of the tests of the foreground: "editor" in front, "browser" below it. `browser` are
// further members of the browser's window, each with a comma in front.
inline std::string twoWindows(const std::string& browser = "", const std::string& faults = "[]",
                              const std::string& foreground = R"("editor")") {
  return R"({"windows": [{"id": "editor", "process": "editor.exe", "title": "Notes"},
                         {"id": "browser", "process": "chrome.exe", "title": "Plan - Claude")" +
         browser + R"(}], "foreground": )" + foreground + R"(, "faults": )" + faults + "}";
}

// The same two as windows of one program's thread.
inline constexpr const char* twoWindowsOfOneThread =
    R"({"windows": [{"id": "editor", "process": "chrome.exe", "pid": 4242, "title": "News"},
                    {"id": "browser", "process": "chrome.exe", "pid": 4242, "title": "Plan - Claude"}],
        "foreground": "editor"})";

// What a rule of the browser's window does at a time.
inline std::string atTime(int ms, const std::string& actions) {
  return R"(, "rules": [{"on": {"time": )" + std::to_string(ms) + R"(}, "do": )" + actions + "}]";
}

// The calls that ask for the foreground and the pauses, in their order, each with the windows to whose
// threads the calling thread's input is joined as the call begins: "SetFocus browser: editor browser". An
// AttachThreadInput stands without a window: what it did is told by the call behind it.
class JoinedCalls {
 public:
  explicit JoinedCalls(simulation::SimulatedDesktop& desktop) : desktop_(desktop) {
    desktop_.world().books().watch(
        [this](std::string_view call, const simulation::Window* window, const simulation::Element*) {
          if (noted.contains(call)) {
            const bool isOnWindow = window != nullptr && call != "AttachThreadInput";
            calls_.push_back(std::string(call) + (isOnWindow ? " " + window->id : "") + ":" + joinedWindows());
          }
        });
  }
  ~JoinedCalls() { desktop_.world().books().watch({}); }
  JoinedCalls(const JoinedCalls&) = delete;
  JoinedCalls& operator=(const JoinedCalls&) = delete;

  [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }

 private:
  static inline const std::set<std::string_view> noted{
      "ShowWindowAsync",     "AttachThreadInput", "SetWindowPos", "BringWindowToTop",
      "SetForegroundWindow", "SetActiveWindow",   "SetFocus",     "Sleep"};

  std::string joinedWindows() const {
    std::string joined;
    for (const char* id : {"editor", "browser"}) {
      const auto& attached = simulation::currentState()->input.attached;
      if (attached.contains({simulation::hostThreadId, desktop_.windowState(id).threadId})) {
        joined += std::string(" ") + id;
      }
    }
    return joined;
  }

  simulation::SimulatedDesktop& desktop_;
  std::vector<std::string> calls_;
};

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
