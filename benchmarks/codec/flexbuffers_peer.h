#pragma once

#include <cstdint>
#include <vector>

#include "embedding/encodable_value.h"

namespace orvane::benchmarks {

// `value` has neither custom values nor lists of numbers; the keys of its maps are texts.
std::vector<std::uint8_t> buildFlexBuffer(const EncodableValue& value);

EncodableValue readFlexBuffer(const std::vector<std::uint8_t>& bytes);

}  // namespace orvane::benchmarks
