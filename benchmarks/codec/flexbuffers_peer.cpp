#include "flexbuffers_peer.h"

#include <flatbuffers/flexbuffers.h>

#include <stdexcept>

namespace orvane::benchmarks {
namespace {

void add(const EncodableValue& value, flexbuffers::Builder& builder) {
  switch (value.kind()) {
    case EncodableKind::null:
      return builder.Null();
    case EncodableKind::boolean:
      return builder.Bool(*std::get_if<bool>(&value));
    case EncodableKind::int32:
      return builder.Int(*std::get_if<std::int32_t>(&value));
    case EncodableKind::int64:
      return builder.Int(*std::get_if<std::int64_t>(&value));
    case EncodableKind::float64:
      return builder.Double(*std::get_if<double>(&value));
    case EncodableKind::string:
      builder.String(*std::get_if<std::string>(&value));
      return;
    case EncodableKind::uint8List:
      builder.Blob(*std::get_if<std::vector<std::uint8_t>>(&value));
      return;
    case EncodableKind::list: {
      const std::size_t start = builder.StartVector();
      for (const EncodableValue& element : *std::get_if<EncodableList>(&value)) {
        add(element, builder);
      }
      builder.EndVector(start, false, false);
      return;
    }
    case EncodableKind::map: {
      const std::size_t start = builder.StartMap();
      for (const auto& [key, element] : *std::get_if<EncodableMap>(&value)) {
        builder.Key(*std::get_if<std::string>(&key));
        add(element, builder);
      }
      builder.EndMap(start);
      return;
    }
    default:
      throw std::invalid_argument("a value without a form");
  }
}

void readInto(EncodableValue& place, flexbuffers::Reference reference) {
  if (reference.IsMap()) {
    const flexbuffers::Map source = reference.AsMap();
    const flexbuffers::TypedVector keys = source.Keys();
    const flexbuffers::Vector values = source.Values();
    auto& map = place.emplace<EncodableMap>();
    for (std::size_t index = 0; index < keys.size(); ++index) {
      readInto(map.try_emplace(map.end(), keys[index].AsKey())->second, values[index]);
    }
  } else if (reference.IsVector()) {
    const flexbuffers::Vector source = reference.AsVector();
    auto& list = place.emplace<EncodableList>();
    list.reserve(source.size());
    for (std::size_t index = 0; index < source.size(); ++index) {
      readInto(list.emplace_back(), source[index]);
    }
  } else if (reference.IsString()) {
    const flexbuffers::String text = reference.AsString();
    place.emplace<std::string>(text.c_str(), text.size());
  } else if (reference.IsBlob()) {
    const flexbuffers::Blob blob = reference.AsBlob();
    place.emplace<std::vector<std::uint8_t>>(blob.data(), blob.data() + blob.size());
  } else if (reference.IsBool()) {
    place.emplace<bool>(reference.AsBool());
  } else if (reference.IsInt()) {
    place.emplace<std::int64_t>(reference.AsInt64());
  } else if (reference.IsFloat()) {
    place.emplace<double>(reference.AsDouble());
  }
}

}  // namespace

std::vector<std::uint8_t> buildFlexBuffer(const EncodableValue& value) {
  flexbuffers::Builder builder;
  add(value, builder);
  builder.Finish();
  return builder.GetBuffer();
}

EncodableValue readFlexBuffer(const std::vector<std::uint8_t>& bytes) {
  EncodableValue root;
  readInto(root, flexbuffers::GetRoot(bytes));
  return root;
}

}  // namespace orvane::benchmarks
