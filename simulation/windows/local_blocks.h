#pragma once

#include <cstddef>

namespace orvane::simulation {

// A zeroed block that the host gives back with LocalFree; counted among the global blocks.
void* allocateLocal(std::size_t byteCount);

}  // namespace orvane::simulation
