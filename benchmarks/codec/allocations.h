#pragma once

#include <cstddef>

namespace orvane::benchmarks {

// How often this program has called operator new so far.
std::size_t countedAllocations() noexcept;

}  // namespace orvane::benchmarks
