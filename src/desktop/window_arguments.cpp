#include "desktop/window_arguments.h"

#include <cstdint>

#include "embedding/call_arguments.h"

namespace orvane {

double numberArgument(const EncodableMap* map, const char* key, double fallback) {
  const EncodableValue* entry = findEntry(map, key);
  if (entry == nullptr) {
    return fallback;
  }
  if (const auto* number = std::get_if<double>(entry)) {
    return *number;
  }
  if (const auto* wide = std::get_if<std::int64_t>(entry)) {
    return static_cast<double>(*wide);
  }
  if (const auto* narrow = std::get_if<std::int32_t>(entry)) {
    return *narrow;
  }
  return fallback;
}

bool flagArgument(const EncodableMap* map, const char* key, bool fallback) {
  return numberArgument(map, key, fallback ? 1.0 : 0.0) != 0.0;
}

std::string stringArgument(const EncodableMap* map, const char* key) { return stringEntry(map, key); }

}  // namespace orvane
