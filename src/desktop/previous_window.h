#pragma once

#include <windows.h>

namespace orvane {

// The last top-level window outside this program that was active; null at first. It isn't cleared when
// that window goes.
HWND previousWindow();

// Hears of every change of the foreground among other processes: a WINEVENTPROC.
void CALLBACK noteForegroundChange(HWINEVENTHOOK hook, DWORD event, HWND window, LONG objectId, LONG childId,
                                   DWORD threadId, DWORD ms);

// Hears WM_ACTIVATE of the main window: the window that lost the activation to it is the previous one.
// Another instance's window counts here.
void noteActivation(HWND mainWindow, WPARAM wparam, LPARAM lparam);

}  // namespace orvane
