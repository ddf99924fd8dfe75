#pragma once

#include <cstdint>

#include "embedding/byte_buffer_stream_reader.h"
#include "embedding/byte_stream_writer.h"
#include "embedding/encodable_value.h"

namespace orvane {

// The byte form of one value: its tag, then what the tag calls for. Derived classes may add tags.
class StandardCodecSerializer {
 public:
  StandardCodecSerializer() = default;
  virtual ~StandardCodecSerializer() = default;

  StandardCodecSerializer(const StandardCodecSerializer&) = delete;
  StandardCodecSerializer& operator=(const StandardCodecSerializer&) = delete;

  // The shared serializer without further tags.
  [[nodiscard]] static const StandardCodecSerializer& instance();

  // Whether a derived class may read and write values in its own way.
  [[nodiscard]] bool isExtended() const noexcept;

  // Reads a tag and its value. What a message lacks is read as ByteStreamReader says; a list or map
  // ends with its message. Values nested too deep are left out, and stream.limits() tells so.
  [[nodiscard]] EncodableValue ReadValue(ByteStreamReader& stream) const;
  // The same, and fast where nothing is extended: no call of a virtual operation.
  [[nodiscard]] EncodableValue ReadValue(ByteBufferStreamReader& stream) const;

  // Writes a tag and its value. A custom value that no derived class writes is logged and written as
  // null.
  virtual void WriteValue(const EncodableValue& value, ByteStreamWriter& stream) const;

  // Reads the value of a tag that has been read. An unknown tag is logged and gives null.
  [[nodiscard]] virtual EncodableValue ReadValueOfType(std::uint8_t type, ByteStreamReader& stream) const;
};

}  // namespace orvane
