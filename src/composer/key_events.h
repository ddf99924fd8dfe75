#pragma once

#include <windows.h>

namespace orvane {

// One event of a virtual key, without scan code and time.
INPUT makeKeyEvent(WORD virtualKey, bool isUp);

// Sends one event by a SendInput call of its own. True when it was inserted.
bool sendKeyEvent(WORD virtualKey, bool isUp);

}  // namespace orvane
