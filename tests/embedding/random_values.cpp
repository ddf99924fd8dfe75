#include "embedding/random_values.h"

#include <array>
#include <limits>

namespace orvane::embedding_tests {

EncodableValue RandomValues::value(int depth) {
  switch (below(depth > 0 ? 4 : 2)) {
    case 0:
      return scalar();
    case 1:
      return sequence();
    default:
      return container(depth);
  }
}

// Small ones mostly, and now and then one around the bounds of the size prefixes.
std::size_t RandomValues::sequenceSize() {
  constexpr std::array<std::size_t, 6> bounds = {252, 253, 254, 255, 65535, 65536};
  return below(40) == 0 ? bounds[below(bounds.size())] : below(9);
}

double RandomValues::anyDouble() {
  constexpr std::array<double, 8> special = {0.0,
                                             -0.0,
                                             1.5,
                                             std::numeric_limits<double>::infinity(),
                                             -std::numeric_limits<double>::infinity(),
                                             std::numeric_limits<double>::quiet_NaN(),
                                             std::numeric_limits<double>::denorm_min(),
                                             std::numeric_limits<double>::max()};
  return below(2) == 0 ? special[below(special.size())] : static_cast<double>(engine_()) / 3.0;
}

EncodableValue RandomValues::scalar() {
  switch (below(5)) {
    case 0:
      return {};
    case 1:
      return below(2) == 0;
    case 2:
      return static_cast<std::int32_t>(engine_());
    case 3:
      return static_cast<std::int64_t>(engine_());
    default:
      return anyDouble();
  }
}

template <typename Element, typename Make>
std::vector<Element> RandomValues::fill(Make make) {
  std::vector<Element> elements(sequenceSize());
  for (Element& element : elements) {
    element = static_cast<Element>(make());
  }
  return elements;
}

EncodableValue RandomValues::sequence() {
  const auto anyBits = [this] { return engine_(); };
  switch (below(6)) {
    case 0: {
      const auto units = fill<std::uint8_t>(anyBits);
      return std::string(units.begin(), units.end());
    }
    case 1:
      return fill<std::uint8_t>(anyBits);
    case 2:
      return fill<std::int32_t>(anyBits);
    case 3:
      return fill<std::int64_t>(anyBits);
    case 4:
      return fill<double>([this] { return anyDouble(); });
    default:
      return fill<float>([this] { return static_cast<float>(below(1000)) / 8.0F; });
  }
}

EncodableValue RandomValues::container(int depth) {
  const std::size_t size = below(6);
  if (below(2) == 0) {
    EncodableList list;
    for (std::size_t index = 0; index < size; ++index) {
      list.push_back(value(depth - 1));
    }
    return list;
  }
  EncodableMap map;
  for (std::size_t index = 0; index < size; ++index) {
    EncodableValue key = value(depth - 1);
    map.emplace(std::move(key), value(depth - 1));
  }
  return map;
}

}  // namespace orvane::embedding_tests
