#pragma once

#include <cstddef>
#include <cstdint>

#include "embedding/decoding_limits.h"

namespace orvane {

// The bytes of one message, read from its start to its end. No read fails loudly: one beyond the
// end is logged on the error stream and gives what its operation says.
class ByteStreamReader {
 public:
  virtual ~ByteStreamReader() = default;

  ByteStreamReader(const ByteStreamReader&) = delete;
  ByteStreamReader& operator=(const ByteStreamReader&) = delete;

  // 0 beyond the end.
  virtual std::uint8_t ReadByte() = 0;
  // Beyond the end neither the destination nor the position changes.
  virtual void ReadBytes(std::uint8_t* destination, std::size_t count) = 0;
  // Goes on to the next multiple of `alignment` from the start, and no farther than to the end.
  virtual void ReadAlignment(std::uint8_t alignment) = 0;

  // Bytes that haven't been read yet.
  [[nodiscard]] std::size_t remaining() const noexcept { return remaining_; }

  [[nodiscard]] DecodingLimits& limits() noexcept { return limits_; }

 protected:
  explicit ByteStreamReader(std::size_t size) noexcept : remaining_(size), limits_(size) {}

  // `count` is at most remaining().
  void consume(std::size_t count) noexcept { remaining_ -= count; }

 private:
  std::size_t remaining_;
  DecodingLimits limits_;
};

}  // namespace orvane
