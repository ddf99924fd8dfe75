#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace orvane::contract {

// What a window does with a message; false leaves it to the platform.
using Handler = std::function<bool(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)>;

// A window of 400 by 300 pixels whose messages go to a handler, hidden at first.
class DrawnWindow {
 public:
  explicit DrawnWindow(UINT classStyle = 0);
  ~DrawnWindow();
  DrawnWindow(const DrawnWindow&) = delete;
  DrawnWindow& operator=(const DrawnWindow&) = delete;

  HWND get() const { return window_; }
  void handle(Handler handler);

 private:
  HWND window_ = nullptr;
};

// Handles all that comes to this thread until none has waited for some milliseconds. False when
// the quit message came.
bool handleWaiting(HWND window);

}  // namespace orvane::contract
