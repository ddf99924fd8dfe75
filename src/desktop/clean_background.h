#pragma once

#include <windows.h>

#include "embedding/encodable_value.h"

namespace orvane {

// Brings the panel below `mainWindow` to what the interface asks for. `arguments` may be null; the
// keys and the reply are those of the method `syncCleanBackground`, coordinates in logical pixels at
// `scale`; `errorCode` is GetLastError of the call that failed, else 0.
EncodableMap syncCleanBackground(HWND mainWindow, double scale, const EncodableMap* arguments);

// Asks the first panel on the desktop to come back; it may be another instance's. True when the
// message was posted.
bool restoreCleanBackground();

}  // namespace orvane
