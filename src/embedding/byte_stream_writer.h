#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane {

// Where a message is written, from its start to its end.
class ByteStreamWriter {
 public:
  ByteStreamWriter() = default;
  virtual ~ByteStreamWriter() = default;

  ByteStreamWriter(const ByteStreamWriter&) = delete;
  ByteStreamWriter& operator=(const ByteStreamWriter&) = delete;

  virtual void WriteByte(std::uint8_t byte) = 0;
  // `bytes` may be null when `count` is 0.
  virtual void WriteBytes(const std::uint8_t* bytes, std::size_t count) = 0;
  // Writes zero bytes up to the next multiple of `alignment` from the start.
  virtual void WriteAlignment(std::uint8_t alignment) = 0;
};

}  // namespace orvane
