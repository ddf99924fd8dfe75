#pragma once

#include <cstdint>

#include "embedding/byte_stream_reader.h"
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

  // Reads a tag and its value. What a message lacks is read as ByteStreamReader says; a list or map
  // ends with its message. Values nested too deep are left out, and stream.limits() tells so.
  [[nodiscard]] EncodableValue ReadValue(ByteStreamReader& stream) const;

  virtual void WriteValue(const EncodableValue& value, ByteStreamWriter& stream) const;

  // Reads the value of a tag that has been read. An unknown tag is logged and gives null.
  [[nodiscard]] virtual EncodableValue ReadValueOfType(std::uint8_t type, ByteStreamReader& stream) const;

 private:
  [[nodiscard]] EncodableValue readList(ByteStreamReader& stream) const;
  [[nodiscard]] EncodableValue readMap(ByteStreamReader& stream) const;
  void writeList(const EncodableList& list, ByteStreamWriter& stream) const;
  void writeMap(const EncodableMap& map, ByteStreamWriter& stream) const;
};

}  // namespace orvane
