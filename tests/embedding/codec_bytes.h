#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "embedding/byte_buffer_stream_reader.h"
#include "embedding/byte_buffer_stream_writer.h"
#include "embedding/standard_codec_serializer.h"

namespace orvane::embedding_tests {

using Bytes = std::vector<std::uint8_t>;

// `value` as it is written behind `offset` bytes of another value.
inline Bytes written(const EncodableValue& value, std::size_t offset = 0) {
  Bytes bytes(offset, 0xEE);
  ByteBufferStreamWriter writer(bytes);
  StandardCodecSerializer::instance().WriteValue(value, writer);
  bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
  return bytes;
}

inline EncodableValue read(const Bytes& bytes) {
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  return StandardCodecSerializer::instance().ReadValue(reader);
}

inline Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

inline Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

inline Bytes repeated(std::size_t count, const Bytes& piece) {
  Bytes bytes;
  bytes.reserve(count * piece.size());
  for (std::size_t index = 0; index < count; ++index) {
    bytes.insert(bytes.end(), piece.begin(), piece.end());
  }
  return bytes;
}

}  // namespace orvane::embedding_tests
