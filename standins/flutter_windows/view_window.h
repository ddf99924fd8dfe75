#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace orvane::standins {

// The view's child window, without a place on the screen until the host takes it in. It shows what
// the interface did: a line for each call. Pixels; ends the run when it can't be made.
HWND makeViewWindow(int width, int height);

void showInView(HWND view, std::vector<std::wstring> lines);

}  // namespace orvane::standins
