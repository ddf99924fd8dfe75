#pragma once

namespace orvane::simulation {

class PlatformState;

// What a loop inside a call of the host handles: the events, messages and paintings that wait, but
// nothing of the interface, whose turn is still on the stack. False when the program is to quit.
bool pumpWaiting(PlatformState& state);

}  // namespace orvane::simulation
