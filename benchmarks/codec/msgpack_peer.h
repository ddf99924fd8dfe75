#pragma once

#include <msgpack/sbuffer_decl.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "embedding/encodable_value.h"

namespace orvane::benchmarks {

// Into what the codec gives, an owned vector. `value` has neither custom values nor lists of numbers,
// which have no form of their own there.
std::vector<std::uint8_t> packMsgpack(const EncodableValue& value);

// Into that library's own buffer, which is nothing that could be handed on as it is.
msgpack::sbuffer packMsgpackBuffer(const EncodableValue& value);

// Throws std::runtime_error for bytes that are no such value.
EncodableValue unpackMsgpack(const char* bytes, std::size_t size);

}  // namespace orvane::benchmarks
