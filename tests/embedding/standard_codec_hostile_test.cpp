#include <gtest/gtest.h>

#include "embedding/captured_errors.h"
#include "embedding/codec_bytes.h"
#include "embedding/recorded_result.h"
#include "embedding/standard_method_codec.h"

namespace orvane::embedding_tests {
namespace {

const Bytes billion = {255, 0x00, 0xCA, 0x9A, 0x3B};
const Bytes largestSize = {255, 0xFF, 0xFF, 0xFF, 0xFF};

EncodableValue readWithLines(const Bytes& bytes, Lines& lines) {
  CapturedErrors errors;
  EncodableValue value = read(bytes);
  lines = errors.lines();
  return value;
}

// Lists of one element each around a null.
Bytes nestedLists(std::size_t depth) { return repeated(depth, {12, 1}) + Bytes{0}; }

TEST(HostileMessage, CostsNoMoreThanItsLength_WhenAListDeclaresABillion) {
  Lines lines;

  const EncodableValue value = readWithLines(Bytes{12} + billion + Bytes{1, 1, 1, 1}, lines);

  const auto& list = std::get<EncodableList>(value);
  EXPECT_EQ(list.size(), 4U);
  EXPECT_LE(list.capacity(), 10U);
  EXPECT_EQ(lines, Lines{invalidRead});
}

TEST(HostileMessage, CostsNoMoreThanItsLength_WhenAMapDeclaresABillion) {
  Lines lines;

  const EncodableValue value = readWithLines(Bytes{13} + billion + Bytes{1, 2, 2, 1}, lines);

  EXPECT_EQ(std::get<EncodableMap>(value), (EncodableMap{{true, false}, {false, true}}));
  EXPECT_EQ(lines, Lines{invalidRead});
}

TEST(HostileMessage, GetsAThousandNullsAtMost_WhenNestedListsEachLackAThousand) {
  constexpr std::size_t depth = 10;
  Lines lines;

  readWithLines(repeated(depth, Bytes{12, 254, 0xE8, 0x03}), lines);

  EXPECT_EQ(lines, Lines(1000 + depth - 1, invalidRead));
}

template <typename Sequence>
void expectEmpty(std::uint8_t tag) {
  for (const Bytes& size : {billion, largestSize}) {
    Lines lines;

    const EncodableValue value = readWithLines(Bytes{tag} + size + Bytes{1, 2, 3, 4}, lines);

    EXPECT_TRUE(std::get<Sequence>(value).empty());
    EXPECT_EQ(std::get<Sequence>(value).capacity(), Sequence().capacity());
    EXPECT_EQ(lines, Lines{invalidRead});
  }
}

TEST(HostileMessage, AllocatesNothing_WhenAFlatSequenceDeclaresABillion) {
  expectEmpty<std::string>(5);
  expectEmpty<std::string>(7);
  expectEmpty<std::vector<std::uint8_t>>(8);
  expectEmpty<std::vector<std::int32_t>>(9);
  expectEmpty<std::vector<std::int64_t>>(10);
  expectEmpty<std::vector<double>>(11);
  expectEmpty<std::vector<float>>(14);
}

TEST(HostileMessage, CostsNoMoreThanItsLength_WhenNestedListsEachDeclareABillion) {
  constexpr std::size_t depth = 1000;
  Lines lines;

  const EncodableValue value = readWithLines(repeated(depth, Bytes{12} + billion), lines);

  std::size_t reserved = 0;
  std::size_t levels = 0;
  for (const EncodableValue* each = &value; each != nullptr; ++levels) {
    const auto& list = std::get<EncodableList>(*each);
    reserved += list.capacity();
    each = list.empty() ? nullptr : &list.front();
  }
  EXPECT_EQ(levels, depth);
  EXPECT_LE(reserved, depth * 6 + depth);  // its bytes, and the one element that each list got
  EXPECT_EQ(lines, Lines(depth, invalidRead));
}

TEST(HostileMessage, IsRead_WhenAThousandDeep) {
  const Bytes bytes = nestedLists(1000);
  ByteBufferStreamReader reader(bytes.data(), bytes.size());

  const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);

  EXPECT_FALSE(reader.limits().exceeded());
  EXPECT_EQ(written(value), bytes);
}

TEST(HostileMessage, StopsSilentlyAndStaysShallow_WhenDeeper) {
  for (const std::size_t depth : {std::size_t{1001}, std::size_t{100000}}) {
    const Bytes bytes = nestedLists(depth);
    ByteBufferStreamReader reader(bytes.data(), bytes.size());
    CapturedErrors errors;

    const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);

    EXPECT_TRUE(reader.limits().exceeded());
    EXPECT_EQ(reader.position(), 1001 * 2U);
    EXPECT_EQ(std::get<EncodableList>(value).size(), 1U);
    EXPECT_EQ(errors.lines(), Lines{});
  }
}

TEST(HostileMessage, StopsEarly_WhenMapsNestInTheirKeysAndValues) {
  for (const Bytes& level : {Bytes{13, 1}, Bytes{13, 1, 0}, Bytes{12, 200}}) {
    const Bytes bytes = repeated(100000, level);
    ByteBufferStreamReader reader(bytes.data(), bytes.size());

    const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);

    EXPECT_TRUE(reader.limits().exceeded());
    EXPECT_LT(reader.position(), 2010 * level.size());
    EXPECT_FALSE(value.isNull());
  }
}

TEST(HostileMessage, IsNoMethodCall_WhenItsArgumentsNestTooDeep) {
  const Bytes name = {7, 1, 'm'};
  const auto& codec = StandardMethodCodec::instance();

  const Bytes allowed = name + nestedLists(1000);
  const Bytes tooDeep = name + nestedLists(1001);
  const Bytes farTooDeep = name + nestedLists(100000);

  EXPECT_NE(codec.DecodeMethodCall(allowed.data(), allowed.size()), nullptr);
  EXPECT_EQ(codec.DecodeMethodCall(tooDeep.data(), tooDeep.size()), nullptr);
  EXPECT_EQ(codec.DecodeMethodCall(farTooDeep.data(), farTooDeep.size()), nullptr);
}

TEST(HostileMessage, IsNoEnvelope_WhenItsValueNestsTooDeep) {
  const auto& codec = StandardMethodCodec::instance();
  ResultCalls calls;
  RecordedResult result(calls);

  const Bytes success = Bytes{0} + nestedLists(100000);
  const Bytes error = Bytes{1, 7, 1, 'c', 0} + nestedLists(100000);
  const bool isSuccessTaken = codec.DecodeAndProcessResponseEnvelope(success.data(), success.size(), result);
  const bool isErrorTaken = codec.DecodeAndProcessResponseEnvelope(error.data(), error.size(), result);

  EXPECT_FALSE(isSuccessTaken);
  EXPECT_FALSE(isErrorTaken);
  EXPECT_TRUE(calls.names.empty());
}

}  // namespace
}  // namespace orvane::embedding_tests
