#include <array>
#include <bit>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "embedding/error_stream.h"
#include "embedding/standard_codec_format.h"
#include "embedding/standard_codec_serializer.h"

// Values are built in the place where they stay, because moving them there costs as much as reading
// them. A place has put<Alternative>(argument…), which makes a value and gives what it holds.
namespace orvane {
namespace {

using Tag = StandardCodecTag;

// A tag and a size of one byte.
constexpr std::size_t shortHeadSize = 2;

// A value that is null so far.
class ValuePlace {
 public:
  explicit ValuePlace(EncodableValue& value) noexcept : value_(value) {}

  template <typename Alternative, typename... Arguments>
  Alternative& put(Arguments... arguments) {
    return value_.emplace<Alternative>(arguments...);
  }

 private:
  EncodableValue& value_;
};

// The end of a list.
class ListPlace {
 public:
  explicit ListPlace(EncodableList& list) noexcept : list_(list) {}

  template <typename Alternative, typename... Arguments>
  Alternative& put(Arguments... arguments) {
    return *std::get_if<Alternative>(&list_.emplace_back(std::in_place_type<Alternative>, arguments...));
  }

 private:
  EncodableList& list_;
};

// The value of a key that is a text, made of the message's bytes. Keys come in their order as a
// rule, so that the end is where they belong. One that comes again keeps its first value, and the
// later value is read into nowhere.
class EntryPlace {
 public:
  EntryPlace(EncodableMap& map, std::string_view key) noexcept : map_(map), key_(key) {}

  template <typename Alternative, typename... Arguments>
  Alternative& put(Arguments... arguments) {
    const std::size_t count = map_.size();
    const auto entry = map_.emplace_hint(map_.end(), std::piecewise_construct,
                                         std::forward_as_tuple(std::in_place_type<std::string>, key_),
                                         std::forward_as_tuple(std::in_place_type<Alternative>, arguments...));
    if (map_.size() == count) [[unlikely]] {
      return *std::get_if<Alternative>(&repeated_.emplace(std::in_place_type<Alternative>, arguments...));
    }
    return *std::get_if<Alternative>(&entry->second);
  }

 private:
  EncodableMap& map_;
  std::string_view key_;
  std::optional<EncodableValue> repeated_;
};

// Where elements are values of the standard form and nothing else.
class PlainSource {
 public:
  explicit PlainSource(ByteBufferStreamReader& stream) noexcept : stream_(stream) {}

  [[nodiscard]] ByteBufferStreamReader& stream() const noexcept { return stream_; }

  // Reads a value to the end of `list`.
  void readElement(EncodableList& list) const { readInto(ListPlace(list)); }
  // Reads a key and its value.
  void readEntry(EncodableMap& map) const;

  template <typename Place>
  void readInto(Place place) const;

 private:
  // Where the key isn't a short text.
  void readUncommonEntry(EncodableMap& map) const;

  ByteBufferStreamReader& stream_;
};

// Where the serializer says what elements are.
class ExtendedSource {
 public:
  ExtendedSource(const StandardCodecSerializer& serializer, ByteStreamReader& stream) noexcept
      : serializer_(serializer), stream_(stream) {}

  [[nodiscard]] ByteStreamReader& stream() const noexcept { return stream_; }

  void readElement(EncodableList& list) const { list.push_back(serializer_.ReadValue(stream_)); }
  void readEntry(EncodableMap& map) const {
    EncodableValue key = serializer_.ReadValue(stream_);
    map.emplace_hint(map.end(), std::move(key), serializer_.ReadValue(stream_));
  }

 private:
  const StandardCodecSerializer& serializer_;
  ByteStreamReader& stream_;
};

std::size_t readLongSize(std::uint8_t first, ByteStreamReader& stream) {
  std::array<std::uint8_t, 4> bytes{};
  stream.ReadBytes(bytes.data(), first == twoByteSize ? 2 : 4);
  return std::bit_cast<std::uint32_t>(bytes);
}

template <typename Stream>
std::size_t readSize(Stream& stream) {
  const std::uint8_t first = stream.ReadByte();
  return first < twoByteSize ? first : readLongSize(first, stream);
}

template <typename Number, typename Stream, typename Place>
void readNumber(Stream& stream, Place& place) {
  Number number{};
  stream.ReadBytes(reinterpret_cast<std::uint8_t*>(&number), sizeof(number));
  place.template put<Number>(number);
}

// `count` elements, or none when they aren't all there; the read that fails is logged.
template <typename Sequence, typename Place>
void readElements(ByteBufferStreamReader& stream, std::size_t count, Place& place) {
  using Element = typename Sequence::value_type;
  const std::uint8_t* const bytes = stream.take(count * sizeof(Element));
  if (bytes == nullptr) {
    place.template put<Sequence>();
  } else if constexpr (sizeof(Element) == 1) {
    const auto* const elements = reinterpret_cast<const Element*>(bytes);
    place.template put<Sequence>(elements, elements + count);
  } else {
    Sequence& sequence = place.template put<Sequence>(count);
    std::memcpy(sequence.data(), bytes, count * sizeof(Element));
  }
}

template <typename Sequence, typename Place>
void readElements(ByteStreamReader& stream, std::size_t count, Place& place) {
  constexpr std::size_t elementSize = sizeof(typename Sequence::value_type);
  Sequence& sequence = place.template put<Sequence>();
  if (count <= stream.remaining() / elementSize) {
    sequence.resize(count);
  }
  stream.ReadBytes(reinterpret_cast<std::uint8_t*>(sequence.data()), count * elementSize);
}

// A text or a list of numbers. One that declares more than the message holds stays empty.
template <typename Sequence, typename Stream, typename Place>
void readSequence(Stream& stream, Place& place) {
  constexpr std::uint8_t elementSize = sizeof(typename Sequence::value_type);
  const std::size_t count = readSize(stream);
  if (count == 0) {
    place.template put<Sequence>();
    return;
  }
  if constexpr (elementSize > 1) {
    stream.ReadAlignment(elementSize);
  }
  readElements<Sequence>(stream, count, place);
}

// Whether a container of `count` elements has one more. What it lacks at the end of its message is
// null, each read logged. Where no more are granted it ends there, with one line.
inline bool goesOn(ByteStreamReader& stream, std::size_t count) {
  if (stream.limits().exceeded()) {
    return false;
  }
  if (stream.remaining() != 0 || stream.limits().grantLackingElement(count)) [[likely]] {
    return true;
  }
  stream.ReadByte();
  return false;
}

template <typename Source>
void readList(const Source& source, EncodableList& list) {
  auto& stream = source.stream();
  const std::size_t count = readSize(stream);
  const DecodingLimits::Level level(stream.limits());
  list.reserve(stream.limits().grantElements(count));
  for (std::size_t element = 0; element < count && goesOn(stream, count); ++element) {
    source.readElement(list);
  }
}

template <typename Source>
void readMap(const Source& source, EncodableMap& map) {
  auto& stream = source.stream();
  const std::size_t count = readSize(stream);
  const DecodingLimits::Level level(stream.limits());
  for (std::size_t entry = 0; entry < count && goesOn(stream, count); ++entry) {
    source.readEntry(map);
  }
}

void logUnknownType(std::uint8_t type) {
  logErrorLine("Unknown type in StandardCodecSerializer::ReadValueOfType: " + std::to_string(type));
}

template <typename Source, typename Place>
void readValue(std::uint8_t type, const Source& source, Place& place) {
  auto& stream = source.stream();
  switch (static_cast<Tag>(type)) {
    case Tag::null:
      place.template put<EncodableNull>();
      return;
    case Tag::booleanTrue:
      place.template put<bool>(true);
      return;
    case Tag::booleanFalse:
      place.template put<bool>(false);
      return;
    case Tag::int32:
      return readNumber<std::int32_t>(stream, place);
    case Tag::int64:
      return readNumber<std::int64_t>(stream, place);
    case Tag::float64:
      stream.ReadAlignment(doubleAlignment);
      return readNumber<double>(stream, place);
    case Tag::largeInteger:
    case Tag::string:
      return readSequence<std::string>(stream, place);
    case Tag::uint8List:
      return readSequence<std::vector<std::uint8_t>>(stream, place);
    case Tag::int32List:
      return readSequence<std::vector<std::int32_t>>(stream, place);
    case Tag::int64List:
      return readSequence<std::vector<std::int64_t>>(stream, place);
    case Tag::float64List:
      return readSequence<std::vector<double>>(stream, place);
    case Tag::float32List:
      return readSequence<std::vector<float>>(stream, place);
    case Tag::list:
      return readList(source, place.template put<EncodableList>());
    case Tag::map:
      return readMap(source, place.template put<EncodableMap>());
  }
  logUnknownType(type);
  place.template put<EncodableNull>();
}

// The next value when it is a text with a size of one byte and all there: what messages are mostly
// made of, read in one step. Otherwise data() is null, and nothing has been read.
inline std::string_view readShortText(ByteBufferStreamReader& stream) {
  if (stream.remaining() < shortHeadSize) [[unlikely]] {
    return {};
  }
  const std::uint8_t* const head = stream.next();
  if (static_cast<Tag>(head[0]) != Tag::string || head[1] >= twoByteSize ||
      head[1] > stream.remaining() - shortHeadSize) {
    return {};
  }
  const std::size_t size = head[1];
  return {reinterpret_cast<const char*>(stream.take(shortHeadSize + size) + shortHeadSize), size};
}

template <typename Place>
void PlainSource::readInto(Place place) const {
  readValue(stream_.ReadByte(), *this, place);
}

void PlainSource::readEntry(EncodableMap& map) const {
  const std::string_view name = readShortText(stream_);
  if (name.data() == nullptr) [[unlikely]] {
    readUncommonEntry(map);
    return;
  }
  EntryPlace place(map, name);
  const std::string_view text = readShortText(stream_);
  if (text.data() != nullptr) {
    place.put<std::string>(text.data(), text.data() + text.size());
  } else {
    readValue(stream_.ReadByte(), *this, place);
  }
}

void PlainSource::readUncommonEntry(EncodableMap& map) const {
  EncodableValue key;
  readInto(ValuePlace(key));
  EncodableValue value;
  readInto(ValuePlace(value));
  map.emplace_hint(map.end(), std::move(key), std::move(value));
}

}  // namespace

EncodableValue StandardCodecSerializer::ReadValue(ByteStreamReader& stream) const {
  return ReadValueOfType(stream.ReadByte(), stream);
}

EncodableValue StandardCodecSerializer::ReadValue(ByteBufferStreamReader& stream) const {
  if (isExtended()) {
    return ReadValueOfType(stream.ReadByte(), stream);
  }
  EncodableValue value;
  PlainSource(stream).readInto(ValuePlace(value));
  return value;
}

EncodableValue StandardCodecSerializer::ReadValueOfType(std::uint8_t type, ByteStreamReader& stream) const {
  EncodableValue value;
  ValuePlace place(value);
  readValue(type, ExtendedSource(*this, stream), place);
  return value;
}

}  // namespace orvane
