#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "scenario/value_codec.h"

namespace orvane::simulation {
namespace {

namespace tag {
constexpr std::uint8_t null = 0;
constexpr std::uint8_t yes = 1;
constexpr std::uint8_t no = 2;
constexpr std::uint8_t int32 = 3;
constexpr std::uint8_t int64 = 4;
constexpr std::uint8_t real = 6;
constexpr std::uint8_t text = 7;
constexpr std::uint8_t bytes = 8;
constexpr std::uint8_t int32List = 9;
constexpr std::uint8_t int64List = 10;
constexpr std::uint8_t doubleList = 11;
constexpr std::uint8_t list = 12;
constexpr std::uint8_t map = 13;
constexpr std::uint8_t floatList = 14;
}  // namespace tag

double realFrom(const Json& value) {
  if (!value.is_string()) return value.get<double>();
  if (value == "NaN") return std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  return value == "Infinity" ? infinity : -infinity;
}

class Encoder {
 public:
  explicit Encoder(const ValueSources& sources) : sources_(sources) {}

  void writeText(const std::string& text) {
    bytes_.push_back(tag::text);
    writeSize(text.size());
    bytes_.insert(bytes_.end(), text.begin(), text.end());
  }

  void writeValue(const Json& value) {
    if (value.is_null()) {
      bytes_.push_back(tag::null);
    } else if (value.is_boolean()) {
      bytes_.push_back(value.get<bool>() ? tag::yes : tag::no);
    } else if (value.is_number_float()) {
      writeReal(value.get<double>());
    } else if (value.is_number()) {
      writeWhole(value.get<std::int64_t>());
    } else if (value.is_string()) {
      writeText(value.get<std::string>());
    } else if (value.is_array()) {
      writeList(value);
    } else if (value.size() == 1 && value.begin().key().starts_with('$')) {
      writeForm(value.begin().key(), value.begin().value());
    } else {
      writeMap(value);
    }
  }

  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  template <typename Number>
  void writeNumber(Number number) {
    const auto raw = std::bit_cast<std::array<std::uint8_t, sizeof(Number)>>(number);
    bytes_.insert(bytes_.end(), raw.begin(), raw.end());
  }

  void align(std::size_t width) {
    while (bytes_.size() % width != 0) bytes_.push_back(0);
  }

  void writeSize(std::size_t size) {
    if (size < 254) {
      bytes_.push_back(static_cast<std::uint8_t>(size));
    } else if (size <= 0xFFFF) {
      bytes_.push_back(254);
      writeNumber(static_cast<std::uint16_t>(size));
    } else {
      bytes_.push_back(255);
      writeNumber(static_cast<std::uint32_t>(size));
    }
  }

  void writeInt32(std::int32_t number) {
    bytes_.push_back(tag::int32);
    writeNumber(number);
  }

  void writeInt64(std::int64_t number) {
    bytes_.push_back(tag::int64);
    writeNumber(number);
  }

  void writeWhole(std::int64_t number) {
    const bool fits =
        number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
    fits ? writeInt32(static_cast<std::int32_t>(number)) : writeInt64(number);
  }

  void writeReal(double number) {
    bytes_.push_back(tag::real);
    align(sizeof(double));
    writeNumber(number);
  }

  template <typename Number>
  void writeTypedList(std::uint8_t listTag, const Json& numbers) {
    bytes_.push_back(listTag);
    writeSize(numbers.size());
    if (numbers.empty()) return;
    align(sizeof(Number));
    for (const Json& number : numbers) {
      if constexpr (std::is_floating_point_v<Number>) {
        writeNumber(static_cast<Number>(realFrom(number)));
      } else {
        writeNumber(number.get<Number>());
      }
    }
  }

  void writeList(const Json& values) {
    bytes_.push_back(tag::list);
    writeSize(values.size());
    for (const Json& value : values) writeValue(value);
  }

  void writeMap(const Json& object) {
    bytes_.push_back(tag::map);
    writeSize(object.size());
    for (const auto& [key, value] : object.items()) {
      writeText(key);
      writeValue(value);
    }
  }

  void writePairs(const Json& pairs) {
    bytes_.push_back(tag::map);
    writeSize(pairs.size());
    for (const Json& pair : pairs) {
      writeValue(pair.at(0));
      writeValue(pair.at(1));
    }
  }

  void writeBytes(const std::string& base64) {
    const std::vector<std::uint8_t> raw = bytesFromBase64(base64).value_or(std::vector<std::uint8_t>{});
    bytes_.push_back(tag::bytes);
    writeSize(raw.size());
    bytes_.insert(bytes_.end(), raw.begin(), raw.end());
  }

  void writeForm(const std::string& form, const Json& value) {
    if (form == "$int32") return writeInt32(value.get<std::int32_t>());
    if (form == "$int64") return writeInt64(value.get<std::int64_t>());
    if (form == "$double") return writeReal(realFrom(value));
    if (form == "$bytes") return writeBytes(value.get<std::string>());
    if (form == "$int32List") return writeTypedList<std::int32_t>(tag::int32List, value);
    if (form == "$int64List") return writeTypedList<std::int64_t>(tag::int64List, value);
    if (form == "$doubleList") return writeTypedList<double>(tag::doubleList, value);
    if (form == "$floatList") return writeTypedList<float>(tag::floatList, value);
    if (form == "$map") return writePairs(value);
    writeSource(form, value.get<std::string>());
  }

  void writeSource(const std::string& form, const std::string& name) {
    if (form == "$window") return writeWhole(static_cast<std::int64_t>(sources_.handleOf(name)));
    if (form == "$windowText") return writeText(std::to_string(sources_.handleOf(name)));
    const Json value = sources_.replyValue(name);
    form == "$from" ? writeValue(value) : writeText(decimalText(value));
  }

  static std::string decimalText(const Json& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_object() && value.contains("$int64")) return value.at("$int64").dump();
    return value.is_null() ? std::string{} : writeJson(value);
  }

  const ValueSources& sources_;
  std::vector<std::uint8_t> bytes_;
};

void checkReal(const Node& node) {
  const Json& value = node.json();
  const bool isWord = value == "NaN" || value == "Infinity" || value == "-Infinity";
  if (!value.is_number() && !isWord) node.fail("must be a number");
}

void checkWholeList(const Node& node, std::int64_t least, std::int64_t most) {
  for (const Node& item : node.items()) item.whole(least, most);
}

void checkPairs(const Node& node, References& references) {
  for (const Node& pair : node.items()) {
    if (pair.items().size() != 2) pair.fail("must be [key, value]");
    for (const Node& side : pair.items()) checkValue(side, references);
  }
}

void checkReference(const Node& node, const References& references) {
  const std::string reference = node.utf8();
  const std::size_t point = reference.find('.');
  if (point == std::string::npos) node.fail("must be \"NAME.KEY\"");
  const std::string name = reference.substr(0, point);
  if (!references.isDeclared(References::Kind::reply, name)) node.fail("there is no earlier reply \"" + name + "\"");
}

void checkForm(const std::string& form, const Node& node, References& references) {
  using Int32 = std::numeric_limits<std::int32_t>;
  using Int64 = std::numeric_limits<std::int64_t>;
  if (form == "$int32") {
    node.whole(Int32::min(), Int32::max());
  } else if (form == "$int64") {
    node.whole(Int64::min(), Int64::max());
  } else if (form == "$double") {
    checkReal(node);
  } else if (form == "$bytes") {
    node.base64();
  } else if (form == "$int32List") {
    checkWholeList(node, Int32::min(), Int32::max());
  } else if (form == "$int64List") {
    checkWholeList(node, Int64::min(), Int64::max());
  } else if (form == "$doubleList" || form == "$floatList") {
    for (const Node& item : node.items()) checkReal(item);
  } else if (form == "$map") {
    checkPairs(node, references);
  } else if (form == "$window" || form == "$windowText") {
    references.mention(References::Kind::window, node);
  } else if (form == "$from" || form == "$fromText") {
    checkReference(node, references);
  } else {
    node.fail("unknown form");
  }
}

}  // namespace

void checkValue(const Node& node, References& references) {
  const Json& value = node.json();
  if (value.is_number_integer()) {
    node.whole(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max());
  } else if (value.is_array()) {
    for (const Node& item : node.items()) checkValue(item, references);
  } else if (value.is_object() && value.size() == 1 && value.begin().key().starts_with('$')) {
    checkForm(value.begin().key(), node.members().front().second, references);
  } else if (value.is_object()) {
    for (const auto& [key, member] : node.members()) checkValue(member, references);
  }
}

std::vector<std::uint8_t> encodeMethodCall(const std::string& method, const Json& value, const ValueSources& sources) {
  Encoder encoder(sources);
  encoder.writeText(method);
  encoder.writeValue(value);
  return encoder.take();
}

std::vector<std::uint8_t> encodeValue(const Json& value, const ValueSources& sources) {
  Encoder encoder(sources);
  encoder.writeValue(value);
  return encoder.take();
}

}  // namespace orvane::simulation
