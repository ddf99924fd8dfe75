#pragma once

#include <windows.h>

#include "world/geometry.h"

namespace orvane::simulation {

// The model's bounds as the platform hands them out, and back.
inline RECT rectOf(const Rectangle& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }
inline Rectangle rectangleOf(const RECT& bounds) { return {bounds.left, bounds.top, bounds.right, bounds.bottom}; }

}  // namespace orvane::simulation
