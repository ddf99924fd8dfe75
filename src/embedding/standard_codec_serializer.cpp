#include "embedding/standard_codec_serializer.h"

#include <typeinfo>

#include "embedding/standard_codec_writing.h"

namespace orvane {

const StandardCodecSerializer& StandardCodecSerializer::instance() {
  static const StandardCodecSerializer serializer;
  return serializer;
}

bool StandardCodecSerializer::isExtended() const noexcept { return typeid(*this) != typeid(StandardCodecSerializer); }

void StandardCodecSerializer::WriteValue(const EncodableValue& value, ByteStreamWriter& stream) const {
  writeValue(value, ExtendedTarget(*this, stream));
}

}  // namespace orvane
