#pragma once

#include <cstdint>
#include <vector>

namespace orvane::simulation {

using Bytes = std::vector<std::uint8_t>;

}  // namespace orvane::simulation
