#pragma once

#include <cstdint>
#include <vector>

namespace orvane::fuzzing {

using InputBytes = std::vector<std::uint8_t>;

// The input of this number: one of the corpus with a few changes, always the same ones. `corpus` has
// at least one input.
InputBytes mutationOf(const std::vector<InputBytes>& corpus, std::uint32_t number);

}  // namespace orvane::fuzzing
