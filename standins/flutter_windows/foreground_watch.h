#pragma once

#include <windows.h>

namespace orvane::standins {

// Does what a window manager would do for the foreground, because none runs here. The display gives
// the keyboard to whoever asks for it, also to a window that has just lost the foreground, and the
// platform then takes the foreground from everybody; and a window that is minimised keeps it.
class ForegroundWatch {
 public:
  // To be called whenever the foreground may have moved on purpose, and in between. True when it had
  // to be moved.
  bool look(HWND mainWindow);

 private:
  bool giveUpMinimized(HWND mainWindow);

  HWND last_ = nullptr;  // null: nobody of the scenario had it
  bool isMinimized_ = false;
};

}  // namespace orvane::standins
