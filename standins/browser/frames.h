#pragma once

#include <windows.h>

#include <deque>
#include <string>

#include "browser/world.h"

namespace orvane::standins {

// A real window in step with its window in the model.
struct Frame {
  simulation::Window* window = nullptr;
  HWND handle = nullptr;  // null once it is closed
  // As the real window has it.
  std::wstring title;
  simulation::Rectangle bounds;
  bool minimized = false;
};

// The real windows of the process.
class Frames {
 public:
  // Makes every window of the process and shows it, in the background all the while, each as soon as
  // those that the scenario lays below it stand: windows of other processes are waited for.
  void open(World& world, WNDPROC procedure);

  std::deque<Frame>& all() { return frames_; }
  Frame* byHandle(HWND handle);  // null: none of the process
  Frame* byWindow(const simulation::Window& window);

  // The process's window without a place on the desktop, for what needs a window of its own.
  HWND link() const { return link_; }

 private:
  void make(World& world, simulation::Window& window, WNDPROC procedure);

  HWND link_ = nullptr;
  std::deque<Frame> frames_;
};

}  // namespace orvane::standins
