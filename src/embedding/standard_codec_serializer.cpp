#include "embedding/standard_codec_serializer.h"

#include <typeinfo>

namespace orvane {

const StandardCodecSerializer& StandardCodecSerializer::instance() {
  static const StandardCodecSerializer serializer;
  return serializer;
}

bool StandardCodecSerializer::isExtended() const noexcept { return typeid(*this) != typeid(StandardCodecSerializer); }

}  // namespace orvane
