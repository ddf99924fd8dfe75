#pragma once

#include <windows.h>

#include "world/text.h"

namespace orvane::simulation {

// A string with its zero that the host will free with CoTaskMemFree.
LPWSTR makeTaskString(TextView text);

}  // namespace orvane::simulation
