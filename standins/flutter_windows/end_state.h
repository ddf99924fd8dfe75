#pragma once

#include <windows.h>

#include "flutter_windows/browsers.h"
#include "scenario/json.h"

namespace orvane::standins {

struct EndState {
  simulation::Json input = simulation::Json::array();  // key events that reached a browser, by their times
  simulation::Json desktop;
};

// The desktop as it stands, in the report's forms. A window of the host that is just being destroyed
// counts as gone.
EndState describeEnd(Browsers& browsers, HWND dyingWindow);

// The clipboard that a browser kept open until its end.
void describeHeldClipboard(EndState& end);

// The objects that the host still holds in the servers of UI Automation and of the spell checker.
simulation::Json describeLiveObjects();

}  // namespace orvane::standins
