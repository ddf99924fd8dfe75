#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane::fuzzing {

// Changes an input of this target in place: mostly a value in one of its calls, so that the calls stay
// calls, sometimes its records, and sometimes any of its bytes. Returns its new size.
std::size_t mutateInput(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned int seed);

}  // namespace orvane::fuzzing
