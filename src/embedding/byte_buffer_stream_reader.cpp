#include "embedding/byte_buffer_stream_reader.h"

#include <algorithm>
#include <cstring>

#include "embedding/error_stream.h"

namespace orvane {
namespace {

void logInvalidRead() { logErrorLine("Invalid read in StandardCodecByteStreamReader"); }

}  // namespace

std::uint8_t ByteBufferStreamReader::ReadByte() {
  if (remaining() == 0) {
    logInvalidRead();
    return 0;
  }
  const std::uint8_t byte = bytes_[position()];
  consume(1);
  return byte;
}

void ByteBufferStreamReader::ReadBytes(std::uint8_t* destination, std::size_t count) {
  if (count > remaining()) {
    logInvalidRead();
    return;
  }
  if (count != 0) {
    std::memcpy(destination, bytes_ + position(), count);
    consume(count);
  }
}

void ByteBufferStreamReader::ReadAlignment(std::uint8_t alignment) {
  const std::size_t excess = position() % alignment;
  if (excess != 0) {
    consume(std::min(alignment - excess, remaining()));
  }
}

}  // namespace orvane
