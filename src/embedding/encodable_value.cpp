#include "embedding/encodable_value.h"

#include <algorithm>
#include <concepts>

namespace orvane {
namespace {

static_assert(std::variant_size_v<EncodableVariant> == static_cast<std::size_t>(EncodableKind::float32List) + 1);

template <typename Value>
std::weak_ordering compare(const Value& left, const Value& right);

std::weak_ordering compareEntries(const EncodableMap::value_type& left, const EncodableMap::value_type& right) {
  const std::weak_ordering keys = left.first <=> right.first;
  return std::is_neq(keys) ? keys : left.second <=> right.second;
}

std::weak_ordering compare(const EncodableMap& left, const EncodableMap& right) {
  return std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(), right.end(), compareEntries);
}

std::weak_ordering compare(EncodableNull, EncodableNull) { return std::weak_ordering::equivalent; }

template <typename Element>
std::weak_ordering compare(const std::vector<Element>& left, const std::vector<Element>& right) {
  return std::lexicographical_compare_three_way(
      left.begin(), left.end(), right.begin(), right.end(),
      [](const Element& one, const Element& other) { return compare(one, other); });
}

template <typename Value>
std::weak_ordering compare(const Value& left, const Value& right) {
  if constexpr (std::floating_point<Value>) {
    return std::weak_order(left, right);
  } else {
    return left <=> right;
  }
}

}  // namespace

std::weak_ordering operator<=>(const EncodableValue& left, const EncodableValue& right) {
  if (left.index() != right.index()) {
    return left.index() <=> right.index();
  }
  return std::visit(
      [&right]<typename Value>(const Value& value) -> std::weak_ordering {
        return compare(value, *std::get_if<Value>(&right));
      },
      static_cast<const EncodableVariant&>(left));
}

}  // namespace orvane
