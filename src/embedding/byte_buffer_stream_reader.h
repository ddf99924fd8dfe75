#pragma once

#include "embedding/byte_stream_reader.h"

namespace orvane {

// Reads bytes that someone else holds.
class ByteBufferStreamReader final : public ByteStreamReader {
 public:
  // `bytes` may be null when `size` is 0, and outlives the reader otherwise.
  ByteBufferStreamReader(const std::uint8_t* bytes, std::size_t size) noexcept
      : ByteStreamReader(size), bytes_(bytes), size_(size) {}

  std::uint8_t ReadByte() override;
  void ReadBytes(std::uint8_t* destination, std::size_t count) override;
  void ReadAlignment(std::uint8_t alignment) override;

  // Counted from the start.
  [[nodiscard]] std::size_t position() const noexcept { return size_ - remaining(); }

 private:
  const std::uint8_t* bytes_;
  std::size_t size_;
};

}  // namespace orvane
