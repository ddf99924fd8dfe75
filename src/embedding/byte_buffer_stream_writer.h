#pragma once

#include <vector>

#include "embedding/byte_stream_writer.h"

namespace orvane {

// Appends to a vector that someone else holds. Alignment counts from the vector's first byte.
class ByteBufferStreamWriter final : public ByteStreamWriter {
 public:
  // `buffer` outlives the writer.
  explicit ByteBufferStreamWriter(std::vector<std::uint8_t>& buffer) noexcept : buffer_(buffer) {}

  void WriteByte(std::uint8_t byte) override;
  void WriteBytes(const std::uint8_t* bytes, std::size_t count) override;
  void WriteAlignment(std::uint8_t alignment) override;

 private:
  std::vector<std::uint8_t>& buffer_;
};

}  // namespace orvane
