#include "composer/key_events.h"

namespace orvane {

INPUT makeKeyEvent(WORD virtualKey, bool isUp) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wVk = virtualKey;
  event.ki.dwFlags = isUp ? KEYEVENTF_KEYUP : 0;
  return event;
}

bool sendKeyEvent(WORD virtualKey, bool isUp) {
  INPUT event = makeKeyEvent(virtualKey, isUp);
  return ::SendInput(1, &event, sizeof(INPUT)) == 1;
}

}  // namespace orvane
