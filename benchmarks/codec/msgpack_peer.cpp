#include "msgpack_peer.h"

#include <msgpack.hpp>
#include <stdexcept>
#include <utility>

namespace orvane::benchmarks {
namespace {

// What packers write to.
class VectorBuffer {
 public:
  explicit VectorBuffer(std::vector<std::uint8_t>& bytes) noexcept : bytes_(bytes) {}

  void write(const char* data, std::size_t size) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(data);
    bytes_.insert(bytes_.end(), first, first + size);
  }

 private:
  std::vector<std::uint8_t>& bytes_;
};

template <typename Packer>
void pack(const EncodableValue& value, Packer& packer);

template <typename Packer>
void packText(const std::string& text, Packer& packer) {
  const auto size = static_cast<std::uint32_t>(text.size());
  packer.pack_str(size);
  packer.pack_str_body(text.data(), size);
}

template <typename Packer>
void packBytes(const std::vector<std::uint8_t>& bytes, Packer& packer) {
  const auto size = static_cast<std::uint32_t>(bytes.size());
  packer.pack_bin(size);
  packer.pack_bin_body(reinterpret_cast<const char*>(bytes.data()), size);
}

template <typename Packer>
void packList(const EncodableList& list, Packer& packer) {
  packer.pack_array(static_cast<std::uint32_t>(list.size()));
  for (const EncodableValue& element : list) {
    pack(element, packer);
  }
}

template <typename Packer>
void packMap(const EncodableMap& map, Packer& packer) {
  packer.pack_map(static_cast<std::uint32_t>(map.size()));
  for (const auto& [key, element] : map) {
    pack(key, packer);
    pack(element, packer);
  }
}

template <typename Packer>
void pack(const EncodableValue& value, Packer& packer) {
  switch (value.kind()) {
    case EncodableKind::null:
      packer.pack_nil();
      return;
    case EncodableKind::boolean:
      *std::get_if<bool>(&value) ? packer.pack_true() : packer.pack_false();
      return;
    case EncodableKind::int32:
      packer.pack_int32(*std::get_if<std::int32_t>(&value));
      return;
    case EncodableKind::int64:
      packer.pack_int64(*std::get_if<std::int64_t>(&value));
      return;
    case EncodableKind::float64:
      packer.pack_double(*std::get_if<double>(&value));
      return;
    case EncodableKind::string:
      return packText(*std::get_if<std::string>(&value), packer);
    case EncodableKind::uint8List:
      return packBytes(*std::get_if<std::vector<std::uint8_t>>(&value), packer);
    case EncodableKind::list:
      return packList(*std::get_if<EncodableList>(&value), packer);
    case EncodableKind::map:
      return packMap(*std::get_if<EncodableMap>(&value), packer);
    default:
      throw std::invalid_argument("a value without a form");
  }
}

// Builds each value in the place where it stays.
class TreeVisitor : public msgpack::null_visitor {
 public:
  // `root` is null, and outlives the visitor.
  explicit TreeVisitor(EncodableValue& root) : place_(&root) {}

  bool visit_nil() { return true; }
  bool visit_boolean(bool value) { return put(value); }
  bool visit_positive_integer(std::uint64_t value) { return put(static_cast<std::int64_t>(value)); }
  bool visit_negative_integer(std::int64_t value) { return put(value); }
  bool visit_float64(double value) { return put(value); }
  bool visit_str(const char* text, std::uint32_t size) {
    place_->emplace<std::string>(text, size);
    return true;
  }
  bool visit_bin(const char* bytes, std::uint32_t size) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(bytes);
    place_->emplace<std::vector<std::uint8_t>>(first, first + size);
    return true;
  }

  bool start_array(std::uint32_t size) {
    auto& list = place_->emplace<EncodableList>();
    list.reserve(size);
    containers_.push_back({&list, nullptr, {}});
    return true;
  }
  bool start_array_item() {
    place_ = &containers_.back().list->emplace_back();
    return true;
  }
  bool end_array() { return leave(); }

  bool start_map(std::uint32_t) {
    containers_.push_back({nullptr, &place_->emplace<EncodableMap>(), {}});
    return true;
  }
  bool start_map_key() {
    place_ = &containers_.back().key;
    return true;
  }
  bool start_map_value() {
    Container& container = containers_.back();
    place_ = &container.map->try_emplace(container.map->end(), std::move(container.key))->second;
    container.key.emplace<EncodableNull>();
    return true;
  }
  bool end_map() { return leave(); }

  void parse_error(std::size_t, std::size_t) { throw std::runtime_error("not msgpack"); }
  void insufficient_bytes(std::size_t, std::size_t) { throw std::runtime_error("not all of it"); }

 private:
  struct Container {
    EncodableList* list;
    EncodableMap* map;
    EncodableValue key;
  };

  template <typename Value>
  bool put(Value value) {
    place_->emplace<Value>(value);
    return true;
  }

  bool leave() {
    containers_.pop_back();
    return true;
  }

  EncodableValue* place_;
  std::vector<Container> containers_;
};

}  // namespace

std::vector<std::uint8_t> packMsgpack(const EncodableValue& value) {
  std::vector<std::uint8_t> bytes;
  VectorBuffer buffer(bytes);
  msgpack::packer<VectorBuffer> packer(buffer);
  pack(value, packer);
  return bytes;
}

msgpack::sbuffer packMsgpackBuffer(const EncodableValue& value) {
  msgpack::sbuffer buffer;
  msgpack::packer<msgpack::sbuffer> packer(buffer);
  pack(value, packer);
  return buffer;
}

EncodableValue unpackMsgpack(const char* bytes, std::size_t size) {
  EncodableValue root;
  TreeVisitor visitor(root);
  if (!msgpack::parse(bytes, size, visitor)) {
    throw std::runtime_error("not msgpack");
  }
  return root;
}

}  // namespace orvane::benchmarks
