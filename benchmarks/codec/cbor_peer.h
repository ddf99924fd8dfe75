#pragma once

#include <nlohmann/json.hpp>

#include "embedding/encodable_value.h"

namespace orvane::benchmarks {

// The same value as that library's own tree, from which and into which its CBOR goes.
nlohmann::json toJson(const EncodableValue& value);

}  // namespace orvane::benchmarks
