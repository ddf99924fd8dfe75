#include "embedding/call_arguments.h"

namespace orvane {

const EncodableMap* argumentMap(const EncodableValue* arguments) {
  return arguments == nullptr ? nullptr : std::get_if<EncodableMap>(arguments);
}

const EncodableValue* findEntry(const EncodableMap* map, const char* key) {
  if (map == nullptr) {
    return nullptr;
  }
  const auto entry = map->find(EncodableValue(key));
  return entry == map->end() ? nullptr : &entry->second;
}

std::string stringEntry(const EncodableMap* map, const char* key) {
  const EncodableValue* entry = findEntry(map, key);
  const auto* text = entry == nullptr ? nullptr : std::get_if<std::string>(entry);
  return text == nullptr ? std::string() : *text;
}

std::optional<std::int64_t> integerEntry(const EncodableMap* map, const char* key) {
  const EncodableValue* entry = findEntry(map, key);
  if (entry == nullptr) {
    return std::nullopt;
  }
  if (const auto* narrow = std::get_if<std::int32_t>(entry)) {
    return *narrow;
  }
  if (const auto* wide = std::get_if<std::int64_t>(entry)) {
    return *wide;
  }
  return std::nullopt;
}

double numberEntry(const EncodableMap* map, const char* key, double fallback) {
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

bool flagEntry(const EncodableMap* map, const char* key, bool fallback) {
  return numberEntry(map, key, fallback ? 1.0 : 0.0) != 0.0;
}

std::vector<std::string> stringListEntry(const EncodableMap* map, const char* key) {
  std::vector<std::string> texts;
  const EncodableValue* entry = findEntry(map, key);
  if (const auto* list = entry == nullptr ? nullptr : std::get_if<EncodableList>(entry)) {
    for (const EncodableValue& item : *list) {
      if (const auto* text = std::get_if<std::string>(&item)) {
        texts.push_back(*text);
      }
    }
  }
  return texts;
}

}  // namespace orvane
