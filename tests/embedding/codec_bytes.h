#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "embedding/byte_buffer_stream_reader.h"
#include "embedding/byte_buffer_stream_writer.h"
#include "embedding/standard_codec_serializer.h"
#include "embedding/standard_method_codec.h"

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

// The same as the host writes it: in a reply, behind as many nulls of one list as `offset`, 3 or more
// but not 256 or 257, asks for.
inline Bytes writtenInReply(const EncodableValue& value, std::size_t offset) {
  constexpr std::size_t headSize = 3;      // the reply's mark, the list's tag and its count
  constexpr std::size_t longHeadSize = 5;  // with a count of three bytes
  EncodableList list(offset - (offset < 256 ? headSize : longHeadSize));
  list.push_back(value);
  const EncodableValue result(std::move(list));
  const auto reply = StandardMethodCodec::instance().EncodeSuccessEnvelope(&result);
  return {reply->begin() + static_cast<std::ptrdiff_t>(offset), reply->end()};
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
