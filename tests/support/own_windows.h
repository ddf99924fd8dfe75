#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "world/geometry.h"

namespace orvane::simulation {

// Top-level windows of the tested program that write down their messages and leave them to the
// platform. One at a time stands in a process. Its end destroys what still lives.
class OwnWindows {
 public:
  struct Seen {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
  };

  explicit OwnWindows(std::vector<std::wstring> classNames);
  ~OwnWindows();
  OwnWindows(const OwnWindows&) = delete;
  OwnWindows& operator=(const OwnWindows&) = delete;

  // A hidden, captioned and sizable window.
  HWND make(const wchar_t* className, const Rectangle& bounds);

  // Handles what waits in the message loop.
  static void handleWaiting();

  // The messages since the last call; their numbers alone.
  static std::vector<Seen> takeSeen();
  static std::vector<UINT> takeMessages();

 private:
  std::vector<std::wstring> classNames_;
  std::vector<HWND> made_;
};

}  // namespace orvane::simulation
