#include "embedding/standard_codec_serializer.h"

#include <array>
#include <bit>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "embedding/error_stream.h"

namespace orvane {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers are copied as they lie in memory");

enum class Tag : std::uint8_t {
  null = 0,
  booleanTrue = 1,
  booleanFalse = 2,
  int32 = 3,
  int64 = 4,
  largeInteger = 5,
  float64 = 6,
  string = 7,
  uint8List = 8,
  int32List = 9,
  int64List = 10,
  float64List = 11,
  list = 12,
  map = 13,
  float32List = 14,
};

constexpr std::uint8_t twoByteSize = 254;
constexpr std::uint8_t fourByteSize = 255;
constexpr std::uint8_t doubleAlignment = 8;

std::size_t readSize(ByteStreamReader& stream) {
  const std::uint8_t first = stream.ReadByte();
  if (first < twoByteSize) {
    return first;
  }
  std::array<std::uint8_t, 4> bytes{};
  stream.ReadBytes(bytes.data(), first == twoByteSize ? 2 : 4);
  return std::bit_cast<std::uint32_t>(bytes);
}

template <typename Number>
Number readNumber(ByteStreamReader& stream) {
  Number number{};
  stream.ReadBytes(reinterpret_cast<std::uint8_t*>(&number), sizeof(number));
  return number;
}

double readDouble(ByteStreamReader& stream) {
  stream.ReadAlignment(doubleAlignment);
  return readNumber<double>(stream);
}

// A text or a list of numbers. One that declares more than the message holds stays empty, and its
// read is logged as any that goes beyond the end.
template <typename Sequence>
Sequence readSequence(ByteStreamReader& stream) {
  constexpr std::size_t elementSize = sizeof(typename Sequence::value_type);
  Sequence sequence;
  const std::size_t count = readSize(stream);
  if (count == 0) {
    return sequence;
  }
  if constexpr (elementSize > 1) {
    stream.ReadAlignment(elementSize);
  }
  if (count <= stream.remaining() / elementSize) {
    sequence.resize(count);
  }
  stream.ReadBytes(reinterpret_cast<std::uint8_t*>(sequence.data()), count * elementSize);
  return sequence;
}

EncodableValue readUnknown(std::uint8_t type) {
  logErrorLine("Unknown type in StandardCodecSerializer::ReadValueOfType: " + std::to_string(type));
  return {};
}

// A container that still lacks elements at the end of its message. The read that fails is what
// logs the lack.
bool endsEarly(ByteStreamReader& stream) {
  if (stream.remaining() != 0) {
    return false;
  }
  stream.ReadByte();
  return true;
}

// The longest head of a value: its tag and a size prefix of five bytes.
class Head {
 public:
  explicit Head(Tag tag) { append(static_cast<std::uint8_t>(tag)); }
  Head(Tag tag, std::size_t size) : Head(tag) { appendSize(static_cast<std::uint32_t>(size)); }

  void write(ByteStreamWriter& stream) const { stream.WriteBytes(bytes_.data(), count_); }

 private:
  void append(std::uint8_t byte) { bytes_[count_++] = byte; }

  void appendSize(std::uint32_t size) {
    if (size < twoByteSize) {
      append(static_cast<std::uint8_t>(size));
      return;
    }
    const bool twoBytes = size <= std::numeric_limits<std::uint16_t>::max();
    append(twoBytes ? twoByteSize : fourByteSize);
    for (int shift = 0; shift < (twoBytes ? 16 : 32); shift += 8) {
      append(static_cast<std::uint8_t>(size >> shift));
    }
  }

  std::array<std::uint8_t, 6> bytes_{};
  std::size_t count_ = 0;
};

void writeTag(Tag tag, ByteStreamWriter& stream) { stream.WriteByte(static_cast<std::uint8_t>(tag)); }

template <typename Number>
void writeNumber(Number number, ByteStreamWriter& stream) {
  stream.WriteBytes(reinterpret_cast<const std::uint8_t*>(&number), sizeof(number));
}

void writeDouble(double number, ByteStreamWriter& stream) {
  writeTag(Tag::float64, stream);
  stream.WriteAlignment(doubleAlignment);
  writeNumber(number, stream);
}

template <typename Sequence>
void writeSequence(Tag tag, const Sequence& sequence, ByteStreamWriter& stream) {
  constexpr std::size_t elementSize = sizeof(typename Sequence::value_type);
  Head(tag, sequence.size()).write(stream);
  if (sequence.empty()) {
    return;
  }
  if constexpr (elementSize > 1) {
    stream.WriteAlignment(elementSize);
  }
  stream.WriteBytes(reinterpret_cast<const std::uint8_t*>(sequence.data()), sequence.size() * elementSize);
}

void writeCustom(ByteStreamWriter& stream) {
  logErrorLine(
      "Unhandled custom type in StandardCodecSerializer::WriteValue. "
      "Custom types require codec extensions.");
  writeTag(Tag::null, stream);
}

}  // namespace

const StandardCodecSerializer& StandardCodecSerializer::instance() {
  static const StandardCodecSerializer serializer;
  return serializer;
}

EncodableValue StandardCodecSerializer::ReadValue(ByteStreamReader& stream) const {
  return ReadValueOfType(stream.ReadByte(), stream);
}

EncodableValue StandardCodecSerializer::ReadValueOfType(std::uint8_t type, ByteStreamReader& stream) const {
  switch (static_cast<Tag>(type)) {
    case Tag::null:
      return {};
    case Tag::booleanTrue:
      return true;
    case Tag::booleanFalse:
      return false;
    case Tag::int32:
      return readNumber<std::int32_t>(stream);
    case Tag::int64:
      return readNumber<std::int64_t>(stream);
    case Tag::float64:
      return readDouble(stream);
    case Tag::largeInteger:
    case Tag::string:
      return readSequence<std::string>(stream);
    case Tag::uint8List:
      return readSequence<std::vector<std::uint8_t>>(stream);
    case Tag::int32List:
      return readSequence<std::vector<std::int32_t>>(stream);
    case Tag::int64List:
      return readSequence<std::vector<std::int64_t>>(stream);
    case Tag::float64List:
      return readSequence<std::vector<double>>(stream);
    case Tag::float32List:
      return readSequence<std::vector<float>>(stream);
    case Tag::list:
      return readList(stream);
    case Tag::map:
      return readMap(stream);
  }
  return readUnknown(type);
}

EncodableValue StandardCodecSerializer::readList(ByteStreamReader& stream) const {
  EncodableValue value{std::in_place_type<EncodableList>};
  const std::size_t count = readSize(stream);
  const DecodingLimits::Level level(stream.limits());
  auto& list = *std::get_if<EncodableList>(&value);
  list.reserve(stream.limits().grantElements(count));
  while (list.size() < count && !stream.limits().exceeded() && !endsEarly(stream)) {
    list.push_back(ReadValue(stream));
  }
  return value;
}

// A key that comes again keeps its first value. A last key without a value has null: the read of
// the value is what logs the early end then.
EncodableValue StandardCodecSerializer::readMap(ByteStreamReader& stream) const {
  EncodableValue value{std::in_place_type<EncodableMap>};
  const std::size_t count = readSize(stream);
  const DecodingLimits::Level level(stream.limits());
  auto& map = *std::get_if<EncodableMap>(&value);
  bool lacksValue = false;
  for (std::size_t entry = 0; entry < count && !stream.limits().exceeded(); ++entry) {
    if (lacksValue || endsEarly(stream)) {
      break;
    }
    EncodableValue key = ReadValue(stream);
    lacksValue = stream.remaining() == 0;
    map.emplace_hint(map.end(), std::move(key), ReadValue(stream));
  }
  return value;
}

void StandardCodecSerializer::WriteValue(const EncodableValue& value, ByteStreamWriter& stream) const {
  switch (value.kind()) {
    case EncodableKind::null:
      return writeTag(Tag::null, stream);
    case EncodableKind::boolean:
      return writeTag(*std::get_if<bool>(&value) ? Tag::booleanTrue : Tag::booleanFalse, stream);
    case EncodableKind::int32:
      writeTag(Tag::int32, stream);
      return writeNumber(*std::get_if<std::int32_t>(&value), stream);
    case EncodableKind::int64:
      writeTag(Tag::int64, stream);
      return writeNumber(*std::get_if<std::int64_t>(&value), stream);
    case EncodableKind::float64:
      return writeDouble(*std::get_if<double>(&value), stream);
    case EncodableKind::string:
      return writeSequence(Tag::string, *std::get_if<std::string>(&value), stream);
    case EncodableKind::uint8List:
      return writeSequence(Tag::uint8List, *std::get_if<std::vector<std::uint8_t>>(&value), stream);
    case EncodableKind::int32List:
      return writeSequence(Tag::int32List, *std::get_if<std::vector<std::int32_t>>(&value), stream);
    case EncodableKind::int64List:
      return writeSequence(Tag::int64List, *std::get_if<std::vector<std::int64_t>>(&value), stream);
    case EncodableKind::float64List:
      return writeSequence(Tag::float64List, *std::get_if<std::vector<double>>(&value), stream);
    case EncodableKind::float32List:
      return writeSequence(Tag::float32List, *std::get_if<std::vector<float>>(&value), stream);
    case EncodableKind::list:
      return writeList(*std::get_if<EncodableList>(&value), stream);
    case EncodableKind::map:
      return writeMap(*std::get_if<EncodableMap>(&value), stream);
    case EncodableKind::custom:
      return writeCustom(stream);
  }
}

void StandardCodecSerializer::writeList(const EncodableList& list, ByteStreamWriter& stream) const {
  Head(Tag::list, list.size()).write(stream);
  for (const EncodableValue& element : list) {
    WriteValue(element, stream);
  }
}

void StandardCodecSerializer::writeMap(const EncodableMap& map, ByteStreamWriter& stream) const {
  Head(Tag::map, map.size()).write(stream);
  for (const auto& [key, element] : map) {
    WriteValue(key, stream);
    WriteValue(element, stream);
  }
}

}  // namespace orvane
