#include "embedding/byte_buffer_stream_writer.h"

namespace orvane {

void ByteBufferStreamWriter::WriteByte(std::uint8_t byte) { buffer_.push_back(byte); }

void ByteBufferStreamWriter::WriteBytes(const std::uint8_t* bytes, std::size_t count) {
  if (count != 0) {
    buffer_.insert(buffer_.end(), bytes, bytes + count);
  }
}

void ByteBufferStreamWriter::WriteAlignment(std::uint8_t alignment) {
  const std::size_t excess = buffer_.size() % alignment;
  if (excess != 0) {
    buffer_.resize(buffer_.size() + (alignment - excess));
  }
}

}  // namespace orvane
