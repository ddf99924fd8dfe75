#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "world/desktop.h"

namespace orvane::standins {

enum class Look { strip, tab, selectedTab, addressBar, field, button, disabledButton, text, frame };

// One thing to draw, in screen pixels.
struct Box {
  simulation::Rectangle bounds;
  std::wstring text;
  Look look = Look::frame;
  bool hasFocus = false;
  bool isHint = false;  // the text only says what is to be put in
  int textHeight = 0;   // pixels from the top that the text has; 0: all
  bool operator==(const Box&) const = default;
};

// What a window shows: its tabs, its address bar and its page, or its title and its elements; in the
// order in which they are drawn.
std::vector<Box> composePicture(const simulation::Desktop& desktop, const simulation::Window& window);

// Draws into the whole of the window, which lies at the same place as the picture.
void drawPicture(HWND window, const std::vector<Box>& picture);

}  // namespace orvane::standins
