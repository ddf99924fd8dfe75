#pragma once

#include <algorithm>
#include <cstring>

#include "embedding/byte_stream_reader.h"

namespace orvane {

// Reads bytes that someone else holds.
class ByteBufferStreamReader final : public ByteStreamReader {
 public:
  // `bytes` may be null when `size` is 0, and outlives the reader otherwise.
  ByteBufferStreamReader(const std::uint8_t* bytes, std::size_t size) noexcept
      : ByteStreamReader(size), bytes_(bytes), size_(size) {}

  std::uint8_t ReadByte() override {
    const std::uint8_t* const byte = take(1);
    return byte == nullptr ? std::uint8_t{0} : *byte;
  }

  void ReadBytes(std::uint8_t* destination, std::size_t count) override {
    const std::uint8_t* const bytes = take(count);
    if (bytes != nullptr && count != 0) {
      std::memcpy(destination, bytes, count);
    }
  }

  void ReadAlignment(std::uint8_t alignment) override {
    const std::size_t excess = position() % alignment;
    if (excess != 0) {
      consume(std::min(alignment - excess, remaining()));
    }
  }

  // Reads the next `count` bytes where they lie. Null, and logged, beyond the end; the position
  // doesn't change then.
  [[nodiscard]] const std::uint8_t* take(std::size_t count) {
    if (count > remaining()) [[unlikely]] {
      logInvalidRead();
      return nullptr;
    }
    const std::uint8_t* const taken = next();
    consume(count);
    return taken;
  }

  // Where the remaining bytes lie.
  [[nodiscard]] const std::uint8_t* next() const noexcept { return bytes_ + position(); }

  // Counted from the start.
  [[nodiscard]] std::size_t position() const noexcept { return size_ - remaining(); }

 private:
  static void logInvalidRead();

  const std::uint8_t* bytes_;
  std::size_t size_;
};

}  // namespace orvane
