#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvane {

// Copies `size` to twice as many bytes with two moves of a fixed size, which overlap as a rule.
template <std::size_t size>
void copyBothEnds(std::uint8_t* destination, const std::uint8_t* source, std::size_t count) {
  std::array<std::uint8_t, size> last;
  std::memcpy(last.data(), source + count - size, size);
  std::memcpy(destination, source, size);
  std::memcpy(destination + count - size, last.data(), size);
}

// Copies 1 to 32 bytes without a call.
inline void copyShort(std::uint8_t* destination, const std::uint8_t* source, std::size_t count) {
  if (count >= 16) {
    copyBothEnds<16>(destination, source, count);
  } else if (count >= 8) {
    copyBothEnds<8>(destination, source, count);
  } else if (count >= 4) {
    copyBothEnds<4>(destination, source, count);
  } else {
    destination[0] = source[0];
    destination[count / 2] = source[count / 2];
    destination[count - 1] = source[count - 1];
  }
}

// Writes one message of the plain standard form into a vector that is allocated once, in its final
// size. Bytes are gathered on the stack first; how large a message is that doesn't fit there is
// asked when that turns out.
class MessageWriter {
 public:
  // `countBytes` gives the size of the whole message.
  explicit MessageWriter(std::function<std::size_t()> countBytes) : countBytes_(std::move(countBytes)) {}
  ~MessageWriter() = default;

  MessageWriter(const MessageWriter&) = delete;
  MessageWriter& operator=(const MessageWriter&) = delete;

  void WriteByte(std::uint8_t byte) { *claim(1) = byte; }

  void WriteBytes(const std::uint8_t* bytes, std::size_t count) {
    if (count > gatheredAtMost) [[unlikely]] {
      return writeThrough(bytes, count);
    }
    if (count != 0) {
      std::memcpy(claim(count), bytes, count);
    }
  }

  // Writes zero bytes up to the next multiple of `alignment`, 8 at most, from the start.
  void WriteAlignment(std::uint8_t alignment) {
    std::uint8_t* const place = claim(largestAlignment);
    std::memset(place, 0, largestAlignment);
    const std::size_t excess = (flushed_ + static_cast<std::size_t>(place - buffer_.data())) % alignment;
    next_ = place + (excess == 0 ? 0 : alignment - excess);
  }

  // Where the next `count` bytes, at most gatheredAtMost, are to be written by the caller.
  [[nodiscard]] std::uint8_t* claim(std::size_t count) {
    if (count > static_cast<std::size_t>(buffer_.data() + buffer_.size() - next_)) [[unlikely]] {
      flush();
    }
    std::uint8_t* const place = next_;
    next_ += count;
    return place;
  }

  // The whole message. The writer is of no use afterwards.
  [[nodiscard]] std::unique_ptr<std::vector<std::uint8_t>> finish() {
    if (message_ == nullptr) [[likely]] {
      return std::make_unique<std::vector<std::uint8_t>>(buffer_.data(), next_);
    }
    flush();
    return std::move(message_);
  }

  // Longer runs of bytes go where they belong at once.
  static constexpr std::size_t gatheredAtMost = 1024;

 private:
  static constexpr std::size_t largestAlignment = 8;

  // Moves what is gathered to the message, which is allocated by the first flush.
  void flush();
  // Appends bytes to the message at once, behind what is gathered.
  void writeThrough(const std::uint8_t* bytes, std::size_t count);

  std::function<std::size_t()> countBytes_;
  std::unique_ptr<std::vector<std::uint8_t>> message_;  // null until something doesn't fit
  std::size_t flushed_ = 0;
  std::array<std::uint8_t, std::size_t{16} * 1024> buffer_;
  std::uint8_t* next_ = buffer_.data();
};

}  // namespace orvane
