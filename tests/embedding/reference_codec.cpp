#include "embedding/reference_codec.h"

#include <cstring>
#include <optional>

namespace orvane::embedding_tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int deepestLevel = 1000;

void appendLittleEndian(std::uint64_t number, int byteCount, Bytes& bytes) {
  for (int index = 0; index < byteCount; ++index) {
    bytes.push_back(static_cast<std::uint8_t>(number % 256));
    number /= 256;
  }
}

void appendSize(std::size_t size, Bytes& bytes) {
  if (size < 254) {
    appendLittleEndian(size, 1, bytes);
  } else if (size <= 65535) {
    bytes.push_back(254);
    appendLittleEndian(size, 2, bytes);
  } else {
    bytes.push_back(255);
    appendLittleEndian(size, 4, bytes);
  }
}

void pad(std::size_t alignment, Bytes& bytes) {
  while (bytes.size() % alignment != 0) {
    bytes.push_back(0);
  }
}

std::uint64_t bitsOf(std::int32_t number) { return static_cast<std::uint32_t>(number); }
std::uint64_t bitsOf(std::int64_t number) { return static_cast<std::uint64_t>(number); }

std::uint64_t bitsOf(float number) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &number, sizeof(bits));
  return bits;
}

std::uint64_t bitsOf(double number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof(bits));
  return bits;
}

template <typename Number>
void appendNumbers(int tag, const std::vector<Number>& numbers, Bytes& bytes) {
  bytes.push_back(static_cast<std::uint8_t>(tag));
  appendSize(numbers.size(), bytes);
  if (!numbers.empty()) {
    pad(sizeof(Number), bytes);
  }
  for (const Number number : numbers) {
    appendLittleEndian(bitsOf(number), sizeof(Number), bytes);
  }
}

struct Writer {
  Bytes& bytes;

  void operator()(EncodableNull) const { bytes.push_back(0); }
  void operator()(bool value) const { bytes.push_back(value ? 1 : 2); }
  void operator()(std::int32_t value) const {
    bytes.push_back(3);
    appendLittleEndian(bitsOf(value), 4, bytes);
  }
  void operator()(std::int64_t value) const {
    bytes.push_back(4);
    appendLittleEndian(bitsOf(value), 8, bytes);
  }
  void operator()(double value) const {
    bytes.push_back(6);
    pad(8, bytes);
    appendLittleEndian(bitsOf(value), 8, bytes);
  }
  void operator()(const std::string& value) const {
    bytes.push_back(7);
    appendSize(value.size(), bytes);
    for (const char byte : value) {
      bytes.push_back(static_cast<std::uint8_t>(byte));
    }
  }
  void operator()(const std::vector<std::uint8_t>& value) const {
    bytes.push_back(8);
    appendSize(value.size(), bytes);
    for (const std::uint8_t byte : value) {
      bytes.push_back(byte);
    }
  }
  void operator()(const std::vector<std::int32_t>& value) const { appendNumbers(9, value, bytes); }
  void operator()(const std::vector<std::int64_t>& value) const { appendNumbers(10, value, bytes); }
  void operator()(const std::vector<double>& value) const { appendNumbers(11, value, bytes); }
  void operator()(const std::vector<float>& value) const { appendNumbers(14, value, bytes); }
  void operator()(const EncodableList& value) const {
    bytes.push_back(12);
    appendSize(value.size(), bytes);
    for (const EncodableValue& element : value) {
      writeReference(element, bytes);
    }
  }
  void operator()(const EncodableMap& value) const {
    bytes.push_back(13);
    appendSize(value.size(), bytes);
    for (const auto& entry : value) {
      writeReference(entry.first, bytes);
      writeReference(entry.second, bytes);
    }
  }
  void operator()(const CustomEncodableValue&) const { bytes.push_back(0); }
};

class Reader {
 public:
  explicit Reader(const Bytes& bytes) : bytes_(bytes) {}

  EncodableValue value(int level) {
    const std::uint64_t tag = number(1).value_or(0);
    switch (tag) {
      case 0:
        return {};
      case 1:
        return true;
      case 2:
        return false;
      case 3:
        return static_cast<std::int32_t>(number(4).value_or(0));
      case 4:
        return static_cast<std::int64_t>(number(8).value_or(0));
      case 5:
      case 7:
        return text();
      case 6:
        align(8);
        return fromBits<double>(number(8).value_or(0));
      case 8:
        return numbers<std::uint8_t>();
      case 9:
        return numbers<std::int32_t>();
      case 10:
        return numbers<std::int64_t>();
      case 11:
        return numbers<double>();
      case 12:
        return list(level + 1);
      case 13:
        return map(level + 1);
      case 14:
        return numbers<float>();
      default:
        result.errors.push_back("Unknown type in StandardCodecSerializer::ReadValueOfType: " + std::to_string(tag));
        return {};
    }
  }

  ReferenceReading result;

 private:
  [[nodiscard]] bool atEnd() const { return result.position == bytes_.size(); }

  // A thousand elements of one message may be missing at its end, and of no container that declares more.
  [[nodiscard]] bool makesUpElement(std::uint64_t count) { return count <= 1000 && madeUp_++ < 1000; }

  void noteInvalidRead() { result.errors.emplace_back("Invalid read in StandardCodecByteStreamReader"); }

  std::optional<std::uint64_t> number(std::size_t byteCount) {
    if (bytes_.size() - result.position < byteCount) {
      noteInvalidRead();
      return std::nullopt;
    }
    std::uint64_t bits = 0;
    for (std::size_t index = byteCount; index > 0; --index) {
      bits = bits * 256 + bytes_[result.position + index - 1];
    }
    result.position += byteCount;
    return bits;
  }

  std::uint64_t size() {
    const std::uint64_t first = number(1).value_or(0);
    return first < 254 ? first : number(first == 254 ? 2 : 4).value_or(0);
  }

  void align(std::size_t alignment) {
    while (!atEnd() && result.position % alignment != 0) {
      ++result.position;
    }
  }

  template <typename Number>
  static Number fromBits(std::uint64_t bits) {
    Number number{};
    std::memcpy(&number, &bits, sizeof(number));  // the low bytes come first
    return number;
  }

  template <typename Number>
  std::vector<Number> numbers() {
    std::vector<Number> found;
    const std::uint64_t count = size();
    if (count > 0) {
      align(sizeof(Number));
    }
    if (count * sizeof(Number) > bytes_.size() - result.position) {
      noteInvalidRead();
      return found;
    }
    while (found.size() < count) {
      found.push_back(fromBits<Number>(*number(sizeof(Number))));
    }
    return found;
  }

  std::string text() {
    const std::vector<std::uint8_t> units = numbers<std::uint8_t>();
    return {units.begin(), units.end()};
  }

  EncodableList list(int level) {
    EncodableList found;
    const std::uint64_t count = size();
    result.isTooDeep = result.isTooDeep || level > deepestLevel;
    while (!result.isTooDeep && found.size() < count) {
      if (atEnd() && !makesUpElement(count)) {
        noteInvalidRead();
        break;
      }
      found.push_back(value(level));
    }
    return found;
  }

  EncodableMap map(int level) {
    EncodableMap found;
    const std::uint64_t count = size();
    result.isTooDeep = result.isTooDeep || level > deepestLevel;
    for (std::uint64_t index = 0; !result.isTooDeep && index < count; ++index) {
      if (atEnd() && !makesUpElement(count)) {
        noteInvalidRead();
        break;
      }
      EncodableValue key = value(level);
      found.emplace(key, value(level));
    }
    return found;
  }

  const Bytes& bytes_;
  int madeUp_ = 0;
};

}  // namespace

void writeReference(const EncodableValue& value, Bytes& bytes) {
  std::visit(Writer{bytes}, static_cast<const EncodableVariant&>(value));
}

ReferenceReading readReference(const Bytes& bytes) {
  Reader reader(bytes);
  reader.result.value = reader.value(0);
  return reader.result;
}

}  // namespace orvane::embedding_tests
