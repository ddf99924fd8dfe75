#pragma once

#include <string>

#include "embedding/encodable_value.h"

namespace orvane {

// The number under `key`: a double as it is, a 64-bit or 32-bit integer converted. `fallback` when the
// map is null, the key absent or its value anything else, a bool too.
double numberArgument(const EncodableMap* map, const char* key, double fallback);

// A number that stands for a flag: set when it isn't 0.
bool flagArgument(const EncodableMap* map, const char* key, bool fallback);

// The UTF-8 string under `key`; empty when the map is null, the key absent or its value no string.
std::string stringArgument(const EncodableMap* map, const char* key);

}  // namespace orvane
