#pragma once

#include <windows.h>

#include "world/geometry.h"

namespace orvane::standins {

// Neither hidden nor minimised.
bool isSeen(HWND window);

// What a person does to a window of this process.

void bringUp(HWND window);
// No window is in front any more.
void leaveAllWindows();
// The next window below that is seen comes to the front in place of one that was just minimised: no
// window manager does it here.
void bringUpWindowBelow(HWND minimized);
void closeWindow(HWND window);
void minimizeWindow(HWND window);
// Drags the window's border; one that is minimised or hidden stays as it is.
void resizeWindow(HWND window, const simulation::Rectangle& bounds);

}  // namespace orvane::standins
