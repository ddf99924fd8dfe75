#pragma once

#include <windows.h>

namespace orvane::simulation {

// The host's module.
HINSTANCE moduleInstance();

}  // namespace orvane::simulation
