#pragma once

#include <windows.h>

namespace orvane {

// The window that the user worked in last, as the two below tell it; null at first. It isn't cleared
// when that window goes.
HWND previousWindow();

// Hears of every change of the foreground among other processes: a WINEVENTPROC. The top-level window of
// another program that comes to the front is the previous one.
void CALLBACK noteForegroundChange(HWINEVENTHOOK hook, DWORD event, HWND window, LONG objectId, LONG childId,
                                   DWORD threadId, DWORD ms);

// Hears WM_ACTIVATE of the main window: the window that lost the activation to it is the previous one,
// whatever it is: another instance's window counts, and none is taken for its top-level one.
void noteActivation(HWND mainWindow, WPARAM wparam, LPARAM lparam);

}  // namespace orvane
