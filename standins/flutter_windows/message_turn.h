#pragma once

#include <windows.h>

namespace orvane::standins {

// The library's turns in the host's message loop: each comes when no other message waits, not even a
// painting, because a timer's message is given last. In a turn it answers, draws or lets the
// interface go on. None comes inside another, nor while the host drags a window or runs a menu.
void startMessageTurns();
void stopMessageTurns();

// A hidden window that lives while turns are taken; null outside.
HWND messageTurnWindow();

}  // namespace orvane::standins
