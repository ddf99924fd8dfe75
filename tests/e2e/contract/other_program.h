#pragma once

#include <windows.h>

#include <memory>

namespace orvane::contract {

// Another program on this desktop, started anew: a second process of this file.
class OtherProgram {
 public:
  OtherProgram();
  ~OtherProgram();
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  // Its visible window, behind all others; null when it couldn't be started.
  HWND window() const { return window_; }
  // It brings its own window to the front, as when a person clicks on it, and announces that.
  void takeFront() const;

  // Ends the program instead when the command line asks for it: what `main` does first.
  static bool isAskedFor(int argumentCount, char** arguments);
  static int run();

 private:
  HANDLE process_ = nullptr;
  HWND window_ = nullptr;
};

}  // namespace orvane::contract
