#pragma once

#include <windows.h>

#include "desktop/host_window.h"
#include "desktop/window_place.h"
#include "embedding/encodable_value.h"

namespace orvane {

// The least tracking size of the compact form.
inline constexpr LogicalSize leastCompactSize{150, 160};

// The window that a geometry command is about: the main window and its pixels for a logical one.
struct MainWindow {
  HWND handle = nullptr;
  double scale = 1.0;
};

// The work area of the monitor nearest the main window, and the window's bounds with its frame: both
// as replies with `success` and, when that is true, `x`, `y`, `width`, `height` in logical pixels.
EncodableMap getWorkArea(const MainWindow& window);
EncodableMap getBounds(const MainWindow& window);

// Places the main window and gives it the compact form (a `width` up to 300) or the normal one. The
// keys, in logical pixels: `x`, `y` (20), `width` (200), `height` (470), and `clientHeight`, which above
// 0 counts instead of `height`, the frame added. False when SetWindowPos fails; style and title have
// changed then.
bool setBounds(const MainWindow& window, const HostWindow& host, const EncodableMap* arguments);

// The last resort: the normal size in the middle of the work area. False when the monitor can't be
// read (nothing has changed then) or SetWindowPos fails.
bool emergencyRestore(const MainWindow& window, const HostWindow& host);

}  // namespace orvane
