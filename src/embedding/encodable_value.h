#pragma once

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
};

}  // namespace orvane
