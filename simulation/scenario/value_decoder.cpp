#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "scenario/value_codec.h"

namespace orvane::simulation {
namespace {

// Bytes that don't follow the format. The interface would throw there too.
class MalformedBytes : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

constexpr int deepestValueNesting = 500;

Json realForm(double number) {
  if (std::isnan(number)) return Json{{"$double", "NaN"}};
  if (std::isinf(number)) return Json{{"$double", number > 0 ? "Infinity" : "-Infinity"}};
  return number;
}

Json wholeForm(std::int64_t number) {
  const bool fits =
      number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
  return fits ? Json{{"$int64", number}} : Json(number);
}

class Decoder {
 public:
  explicit Decoder(const std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

  std::uint8_t readByte() { return *take(1); }

  void requireEnd() const {
    if (at_ != bytes_.size()) throw MalformedBytes("bytes behind the end");
  }

  Json readValue() {
    if (++depth_ > deepestValueNesting) throw MalformedBytes("nested too deep");
    Json value = readTagged(readByte());
    --depth_;
    return value;
  }

 private:
  const std::uint8_t* take(std::size_t count) {
    if (count > bytes_.size() - at_) throw MalformedBytes("bytes end too early");
    const std::uint8_t* start = bytes_.data() + at_;
    at_ += count;
    return start;
  }

  template <typename Number>
  Number readNumber() {
    Number number{};
    std::memcpy(&number, take(sizeof number), sizeof number);
    return number;
  }

  std::size_t readSize() {
    const std::uint8_t first = readByte();
    if (first < 254) return first;
    return first == 254 ? readNumber<std::uint16_t>() : readNumber<std::uint32_t>();
  }

  void align(std::size_t width) {
    while (at_ % width != 0) take(1);
  }

  std::string readText() {
    const std::size_t size = readSize();
    const auto* start = reinterpret_cast<const char*>(take(size));
    return validUtf8(std::string_view(start, size));
  }

  Json readReal() {
    align(sizeof(double));
    return realForm(readNumber<double>());
  }

  Json readBytes() {
    const std::size_t size = readSize();
    const std::uint8_t* start = take(size);
    return Json{{"$bytes", base64FromBytes({start, start + size})}};
  }

  template <typename Number>
  Json readTypedList(const char* form) {
    const std::size_t size = readSize();
    if (size != 0) align(sizeof(Number));
    Json numbers = Json::array();
    for (std::size_t index = 0; index < size; ++index) {
      const Number number = readNumber<Number>();
      if constexpr (std::is_floating_point_v<Number>) {
        const Json shown = realForm(static_cast<double>(number));
        numbers.push_back(shown.is_object() ? shown.at("$double") : shown);
      } else {
        numbers.push_back(number);
      }
    }
    return Json{{form, numbers}};
  }

  Json readList() {
    const std::size_t size = readSize();
    Json values = Json::array();
    for (std::size_t index = 0; index < size; ++index) values.push_back(readValue());
    return values;
  }

  Json readMap() {
    const std::size_t size = readSize();
    Json object = Json::object();
    Json pairs = Json::array();
    bool isPlain = true;
    for (std::size_t index = 0; index < size; ++index) {
      Json key = readValue();
      Json value = readValue();
      isPlain = isPlain && key.is_string() && !object.contains(key.get<std::string>());
      if (isPlain) object[key.get<std::string>()] = value;
      pairs.push_back(Json::array({std::move(key), std::move(value)}));
    }
    const bool looksLikeForm = size == 1 && isPlain && object.begin().key().starts_with('$');
    return isPlain && !looksLikeForm ? object : Json{{"$map", pairs}};
  }

  Json readTagged(std::uint8_t tag) {
    switch (tag) {
      case 0:
        return nullptr;
      case 1:
        return true;
      case 2:
        return false;
      case 3:
        return readNumber<std::int32_t>();
      case 4:
        return wholeForm(readNumber<std::int64_t>());
      case 5:
      case 7:
        return readText();
      case 6:
        return readReal();
      case 8:
        return readBytes();
      case 9:
        return readTypedList<std::int32_t>("$int32List");
      case 10:
        return readTypedList<std::int64_t>("$int64List");
      case 11:
        return readTypedList<double>("$doubleList");
      case 12:
        return readList();
      case 13:
        return readMap();
      case 14:
        return readTypedList<float>("$floatList");
      default:
        throw MalformedBytes("unknown tag");
    }
  }

  const std::vector<std::uint8_t>& bytes_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

DecodedReply decodeEnvelope(Decoder& decoder) {
  DecodedReply decoded;
  const std::uint8_t envelope = decoder.readByte();
  if (envelope == 0) {
    decoded.kind = "success";
    decoded.value = decoder.readValue();
  } else if (envelope == 1) {
    decoded.kind = "error";
    decoded.error["code"] = decoder.readValue();
    decoded.error["message"] = decoder.readValue();
    decoded.error["details"] = decoder.readValue();
  } else {
    throw MalformedBytes("unknown envelope");
  }
  decoder.requireEnd();
  return decoded;
}

}  // namespace

std::optional<DecodedCall> decodeMethodCall(const std::vector<std::uint8_t>& message) {
  try {
    Decoder decoder(message);
    const Json method = decoder.readValue();
    Json arguments = decoder.readValue();
    decoder.requireEnd();
    if (!method.is_string()) return std::nullopt;
    return DecodedCall{method.get<std::string>(), std::move(arguments)};
  } catch (const MalformedBytes&) {
    return std::nullopt;
  }
}

DecodedReply decodeReply(const std::optional<std::vector<std::uint8_t>>& reply) {
  if (!reply) return {"none", nullptr, nullptr};
  if (reply->empty()) return {"notImplemented", nullptr, nullptr};
  try {
    Decoder decoder(*reply);
    return decodeEnvelope(decoder);
  } catch (const MalformedBytes&) {
    return {"malformed", nullptr, nullptr};
  }
}

}  // namespace orvane::simulation
