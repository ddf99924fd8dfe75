#pragma once

#include <utility>

#include "embedding/encodable_value.h"

namespace orvane {

// A reply that says how the call went: the key `success` alone.
inline EncodableMap successReply(bool success) {
  EncodableMap reply;
  reply.emplace(EncodableValue("success"), EncodableValue(success));
  return reply;
}

// Adds one key to a reply.
template <typename Value>
void addToReply(EncodableMap& reply, const char* key, Value value) {
  reply.emplace(EncodableValue(key), EncodableValue(std::move(value)));
}

}  // namespace orvane
