#include "cbor_peer.h"

#include <stdexcept>

namespace orvane::benchmarks {

nlohmann::json toJson(const EncodableValue& value) {
  switch (value.kind()) {
    case EncodableKind::null:
      return nullptr;
    case EncodableKind::boolean:
      return *std::get_if<bool>(&value);
    case EncodableKind::int32:
      return *std::get_if<std::int32_t>(&value);
    case EncodableKind::int64:
      return *std::get_if<std::int64_t>(&value);
    case EncodableKind::float64:
      return *std::get_if<double>(&value);
    case EncodableKind::string:
      return *std::get_if<std::string>(&value);
    case EncodableKind::uint8List:
      return nlohmann::json::binary(*std::get_if<std::vector<std::uint8_t>>(&value));
    case EncodableKind::list: {
      nlohmann::json list = nlohmann::json::array();
      for (const EncodableValue& element : *std::get_if<EncodableList>(&value)) {
        list.push_back(toJson(element));
      }
      return list;
    }
    case EncodableKind::map: {
      nlohmann::json map = nlohmann::json::object();
      for (const auto& [key, element] : *std::get_if<EncodableMap>(&value)) {
        map.emplace(std::get<std::string>(key), toJson(element));
      }
      return map;
    }
    default:
      throw std::invalid_argument("a value without a form");
  }
}

}  // namespace orvane::benchmarks
