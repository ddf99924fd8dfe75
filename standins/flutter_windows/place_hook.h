#pragma once

#include <functional>

namespace orvane::standins {

// Calls `act` whenever a top-level window of this thread has come to another place in the z-order,
// was shown or hidden, before any other message is handled.
void installPlaceHook(std::function<void()> act);
void removePlaceHook();

}  // namespace orvane::standins
