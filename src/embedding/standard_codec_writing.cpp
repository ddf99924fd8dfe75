#include "embedding/standard_codec_writing.h"

namespace orvane {

void StandardCodecSerializer::WriteValue(const EncodableValue& value, ByteStreamWriter& stream) const {
  writeValue(value, ExtendedTarget(*this, stream));
}

}  // namespace orvane
