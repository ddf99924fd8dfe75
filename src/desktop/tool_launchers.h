#pragma once

#include <windows.h>

#include "embedding/encodable_value.h"

namespace orvane {

// Launchers of Windows' own tools, each one ShellExecuteW call; the keys are those of the methods of
// the same names. True when the shell took the order: ShellExecuteW returned more than 32.
bool openScreenCapture();
bool openTaskManager();
bool openCommandPromptAt(HWND mainWindow, const EncodableMap* arguments);
bool openCommandWindow(HWND mainWindow, const EncodableMap* arguments);

// Replies with `success` and, as `errorCode`, what ShellExecuteW returned; 2 when no path was given.
EncodableMap runBatchFile(HWND mainWindow, const EncodableMap* arguments);
EncodableMap openTextFile(HWND mainWindow, const EncodableMap* arguments);

}  // namespace orvane
