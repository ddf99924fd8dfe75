#pragma once

#include <windows.h>

namespace orvane::standins {

// The platform here activates and raises a window that it restores, and waits for the window that
// was active to take notice, however long that program sleeps. These keep a restored window where it
// lies and leave the foreground alone.

// Restores a minimised window of the process.
void restoreQuietly(HWND icon);

// The answer to WM_QUERYOPEN: only what restores quietly may open it. Else it is told to the window by
// the message, which comes when the one who asked has been served.
bool mayOpen(HWND icon);
UINT restoreMessage();

// To be asked at WM_WINDOWPOSCHANGING.
void calmRestore(WINDOWPOS& change);

}  // namespace orvane::standins
