#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "embedding/encodable_value.h"

namespace orvane {

// The arguments of a call as a map; null when they are anything else.
const EncodableMap* argumentMap(const EncodableValue* arguments);

// The value under `key`; null when the map is null or the key absent.
const EncodableValue* findEntry(const EncodableMap* map, const char* key);

// The string under `key`; empty when the map is null, the key absent or its value no string.
std::string stringEntry(const EncodableMap* map, const char* key);

// The 32-bit or 64-bit integer under `key`; no value when the map is null or it is anything else.
std::optional<std::int64_t> integerEntry(const EncodableMap* map, const char* key);

// The number under `key`: a double as it is, a 64-bit or 32-bit integer converted. `fallback` when the
// map is null, the key absent or its value anything else, a bool too.
double numberEntry(const EncodableMap* map, const char* key, double fallback);

// A number that stands for a flag: set when it isn't 0.
bool flagEntry(const EncodableMap* map, const char* key, bool fallback);

// The strings of the list under `key` in their order, entries of other types left out; empty when
// the map is null or the value no list.
std::vector<std::string> stringListEntry(const EncodableMap* map, const char* key);

}  // namespace orvane
