#pragma once

#include "messages/records.h"

namespace orvane::fuzzing {

// Runs the host from wWinMain to its exit code in front of the input's desktop, on a platform of its
// own, and holds it to its promises. What the process keeps between runs begins anew.
void runSession(const Input& input);

}  // namespace orvane::fuzzing
