#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "embedding/error_stream.h"
#include "embedding/message_writer.h"
#include "embedding/standard_codec_format.h"
#include "embedding/standard_codec_serializer.h"

// How values are written, for whoever writes whole messages: a target takes a value with
// writeElement, a text with writeText, and single bytes with its stream().
namespace orvane {

// Takes what a MessageWriter takes, and counts it alone.
class ByteCounter {
 public:
  void WriteByte(std::uint8_t) noexcept { ++count_; }
  void WriteBytes(const std::uint8_t*, std::size_t count) noexcept { count_ += count; }
  void WriteAlignment(std::uint8_t alignment) noexcept { count_ = (count_ + alignment - 1) / alignment * alignment; }

  [[nodiscard]] std::size_t count() const noexcept { return count_; }

 private:
  std::size_t count_ = 0;
};

// Where elements are values of the standard form and nothing else. `Stream` is a MessageWriter or a
// ByteCounter.
template <typename Stream>
class PlainTarget {
 public:
  explicit PlainTarget(Stream& stream) noexcept : stream_(stream) {}

  [[nodiscard]] Stream& stream() const noexcept { return stream_; }

  void writeElement(const EncodableValue& value) const;
  void writeText(const std::string& text) const;

 private:
  Stream& stream_;
};

// Where the serializer says how elements are written.
class ExtendedTarget {
 public:
  ExtendedTarget(const StandardCodecSerializer& serializer, ByteStreamWriter& stream) noexcept
      : serializer_(serializer), stream_(stream) {}

  [[nodiscard]] ByteStreamWriter& stream() const noexcept { return stream_; }

  void writeElement(const EncodableValue& value) const { serializer_.WriteValue(value, stream_); }
  void writeText(const std::string& text) const { serializer_.WriteValue(text, stream_); }

 private:
  const StandardCodecSerializer& serializer_;
  ByteStreamWriter& stream_;
};

template <typename Stream>
void writeTag(StandardCodecTag tag, Stream& stream) {
  stream.WriteByte(static_cast<std::uint8_t>(tag));
}

template <typename Stream>
void writeHead(StandardCodecTag tag, std::size_t size, Stream& stream) {
  if (size < twoByteSize) [[likely]] {
    const std::array<std::uint8_t, 2> head{static_cast<std::uint8_t>(tag), static_cast<std::uint8_t>(size)};
    stream.WriteBytes(head.data(), head.size());
    return;
  }
  const bool twoBytes = size <= std::numeric_limits<std::uint16_t>::max();
  const std::array<std::uint8_t, 6> head{static_cast<std::uint8_t>(tag),        twoBytes ? twoByteSize : fourByteSize,
                                         static_cast<std::uint8_t>(size),       static_cast<std::uint8_t>(size >> 8),
                                         static_cast<std::uint8_t>(size >> 16), static_cast<std::uint8_t>(size >> 24)};
  stream.WriteBytes(head.data(), twoBytes ? 4 : head.size());
}

template <typename Number, typename Stream>
void writeNumber(Number number, Stream& stream) {
  stream.WriteBytes(reinterpret_cast<const std::uint8_t*>(&number), sizeof(number));
}

template <typename Sequence, typename Stream>
void writeSequence(StandardCodecTag tag, const Sequence& sequence, Stream& stream) {
  constexpr std::uint8_t elementSize = sizeof(typename Sequence::value_type);
  writeHead(tag, sequence.size(), stream);
  if constexpr (elementSize > 1) {
    if (sequence.empty()) {
      return;
    }
    stream.WriteAlignment(elementSize);
  }
  stream.WriteBytes(reinterpret_cast<const std::uint8_t*>(sequence.data()), sequence.size() * elementSize);
}

template <typename Target>
void writeList(const EncodableList& list, const Target& target) {
  writeHead(StandardCodecTag::list, list.size(), target.stream());
  for (const EncodableValue& element : list) {
    target.writeElement(element);
  }
}

template <typename Target>
void writeMap(const EncodableMap& map, const Target& target) {
  writeHead(StandardCodecTag::map, map.size(), target.stream());
  for (const auto& [key, element] : map) {
    target.writeElement(key);
    target.writeElement(element);
  }
}

template <typename Stream>
void writeCustom(Stream& stream) {
  // What is counted is written as well, and logged then.
  if constexpr (!std::is_same_v<Stream, ByteCounter>) {
    logErrorLine(
        "Unhandled custom type in StandardCodecSerializer::WriteValue. "
        "Custom types require codec extensions.");
  }
  writeTag(StandardCodecTag::null, stream);
}

template <typename Target>
void writeValue(const EncodableValue& value, const Target& target) {
  using Tag = StandardCodecTag;
  auto& stream = target.stream();
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
      writeTag(Tag::float64, stream);
      stream.WriteAlignment(doubleAlignment);
      return writeNumber(*std::get_if<double>(&value), stream);
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
      return writeList(*std::get_if<EncodableList>(&value), target);
    case EncodableKind::map:
      return writeMap(*std::get_if<EncodableMap>(&value), target);
    case EncodableKind::custom:
      return writeCustom(stream);
  }
}

// Short texts are nearly all that messages are made of: their head and their bytes go at once.
inline void writeText(const std::string& text, MessageWriter& stream) {
  if (text.size() >= twoByteSize) [[unlikely]] {
    return writeSequence(StandardCodecTag::string, text, stream);
  }
  std::uint8_t* const place = stream.claim(2 + text.size());
  place[0] = static_cast<std::uint8_t>(StandardCodecTag::string);
  place[1] = static_cast<std::uint8_t>(text.size());
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  if (text.size() > 32) {
    std::memcpy(place + 2, bytes, text.size());
  } else if (!text.empty()) {
    copyShort(place + 2, bytes, text.size());
  }
}

inline void writeText(const std::string& text, ByteCounter& stream) {
  const std::size_t size = text.size();
  const std::size_t headSize = size < twoByteSize ? 2 : size <= std::numeric_limits<std::uint16_t>::max() ? 4 : 6;
  stream.WriteBytes(nullptr, headSize + size);
}

template <typename Stream>
void PlainTarget<Stream>::writeElement(const EncodableValue& value) const {
  if (const auto* const text = std::get_if<std::string>(&value)) [[likely]] {
    orvane::writeText(*text, stream_);
  } else {
    writeValue(value, *this);
  }
}

template <typename Stream>
void PlainTarget<Stream>::writeText(const std::string& text) const {
  orvane::writeText(text, stream_);
}

}  // namespace orvane
