#pragma once

#include <windows.h>

namespace orvane {

// One event of a virtual key for SendInput: scan code, time and extra information are 0.
INPUT makeKeyEvent(WORD virtualKey, bool isUp);

// Sends one event by a SendInput call of its own, to whatever has the focus. True when it was inserted.
bool sendKeyEvent(WORD virtualKey, bool isUp);

}  // namespace orvane
