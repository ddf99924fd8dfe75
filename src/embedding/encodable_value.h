#pragma once

#include <algorithm>
#include <any>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orvane {

class EncodableValue;

using EncodableList = std::vector<EncodableValue>;
using EncodableMap = std::map<EncodableValue, EncodableValue>;

// The null of the interface's language. Without a three-way comparison of its own on purpose: it
// keeps the variant's from being considered for EncodableValue, where it would need itself.
struct EncodableNull {
  friend constexpr bool operator==(EncodableNull, EncodableNull) noexcept { return true; }
  friend constexpr bool operator<(EncodableNull, EncodableNull) noexcept { return false; }
};

// A value that only an extended codec can write. Copies share what they hold, and are the same value.
class CustomEncodableValue {
 public:
  explicit CustomEncodableValue(std::any content) : content_(std::make_shared<const std::any>(std::move(content))) {}

  [[nodiscard]] const std::any& content() const noexcept { return *content_; }

  friend bool operator==(const CustomEncodableValue&, const CustomEncodableValue&) = default;
  friend auto operator<=>(const CustomEncodableValue&, const CustomEncodableValue&) = default;

 private:
  std::shared_ptr<const std::any> content_;
};

// The order of the alternatives is the order of values of different kinds.
using EncodableVariant =
    std::variant<EncodableNull, bool, std::int32_t, std::int64_t, double, std::string, std::vector<std::uint8_t>,
                 std::vector<std::int32_t>, std::vector<std::int64_t>, std::vector<double>, EncodableList, EncodableMap,
                 CustomEncodableValue, std::vector<float>>;

// The index() of each alternative.
enum class EncodableKind : std::size_t {
  null,
  boolean,
  int32,
  int64,
  float64,
  string,
  uint8List,
  int32List,
  int64List,
  float64List,
  list,
  map,
  custom,
  float32List,
};

// One value of a method channel: an argument, a reply or a part of one. Default-made it is null; an
// alternative is read with std::get and std::get_if, as of any variant.
class EncodableValue : public EncodableVariant {
 public:
  using EncodableVariant::EncodableVariant;
  using EncodableVariant::operator=;

  EncodableValue() noexcept = default;
  ~EncodableValue() = default;
  EncodableValue(const EncodableValue&) = default;
  EncodableValue& operator=(const EncodableValue&) = default;
  // Some libraries' maps allocate when moved; noexcept nevertheless, so that growing lists move.
  EncodableValue(EncodableValue&&) noexcept = default;
  EncodableValue& operator=(EncodableValue&&) noexcept = default;

  // `text` is not null.
  EncodableValue(const char* text) : EncodableVariant(std::string(text)) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] EncodableKind kind() const noexcept { return static_cast<EncodableKind>(index()); }
  [[nodiscard]] bool isNull() const noexcept { return kind() == EncodableKind::null; }

  // By index first, then by the value: texts by their bytes, lists and maps element by element. A
  // number that isn't one (NaN) has its place beside the numbers, so that any value can be a key.
  friend std::weak_ordering operator<=>(const EncodableValue& left, const EncodableValue& right);
  friend bool operator==(const EncodableValue& left, const EncodableValue& right) { return std::is_eq(left <=> right); }
  // The same order, and fast for texts, which are the keys of nearly all maps.
  friend bool operator<(const EncodableValue& left, const EncodableValue& right) {
    const auto* const leftText = std::get_if<std::string>(&left);
    const auto* const rightText = std::get_if<std::string>(&right);
    return leftText != nullptr && rightText != nullptr ? comesBefore(*leftText, *rightText)
                                                       : std::is_lt(left <=> right);
  }

 private:
  // A key has often just been put together when it is compared, and what was written in small pieces
  // is slow to be read in large ones. So the first bytes, which decide as a rule, are read one by one.
  static bool comesBefore(const std::string& left, const std::string& right) {
    constexpr std::size_t readSingly = 16;
    const std::size_t count = std::min({left.size(), right.size(), readSingly});
    for (std::size_t index = 0; index < count; ++index) {
      if (left[index] != right[index]) {
        return static_cast<unsigned char>(left[index]) < static_cast<unsigned char>(right[index]);
      }
    }
    return left < right;
  }
};

}  // namespace orvane
