#include <gtest/gtest.h>

#include "embedding/captured_errors.h"
#include "embedding/codec_bytes.h"

namespace orvane::embedding_tests {
namespace {

const std::string unknownType = "Unknown type in StandardCodecSerializer::ReadValueOfType: ";

struct ReadingCase {
  const char* name;
  Bytes bytes;
  EncodableValue value;
  Lines errors;
};

class StandardCodecReading : public ::testing::TestWithParam<ReadingCase> {};

TEST_P(StandardCodecReading, GivesWhatIsThere_AndLogsWhatIsNot) {
  CapturedErrors errors;

  const EncodableValue value = read(GetParam().bytes);

  EXPECT_EQ(value.index(), GetParam().value.index());
  EXPECT_EQ(value, GetParam().value);
  EXPECT_EQ(errors.lines(), GetParam().errors);
}

const ReadingCase readingCases[] = {
    {"LargeIntegerIsText", {5, 2, 'f', 'f'}, "ff", {}},
    {"TagBehindTheLastIsNull", {15}, {}, {unknownType + "15"}},
    {"LastTagIsNull", {255}, {}, {unknownType + "255"}},
    {"UnknownTagIsNullAmongOthers", {12, 2, 99, 1}, EncodableList{EncodableValue(), true}, {unknownType + "99"}},
    {"EmptyMessageIsNull", {}, {}, {invalidRead}},
    {"ShortInt32IsZero", {3, 1, 2, 3}, std::int32_t{0}, {invalidRead}},
    {"ShortInt64IsZero", {4, 1, 2, 3, 4, 5, 6, 7}, std::int64_t{0}, {invalidRead}},
    {"ShortDoubleIsZero", Bytes{6} + Bytes(14, 1), 0.0, {invalidRead}},
    {"DoubleEndingInItsPaddingIsZero", {6, 0, 0}, 0.0, {invalidRead}},
    {"MissingSizeIsZero", {7}, "", {invalidRead}},
    {"ShortTwoByteSizeIsZero", {7, 254, 1}, "", {invalidRead}},
    {"ShortFourByteSizeIsZero", {7, 255, 1, 0, 0}, "", {invalidRead}},
    {"ShortStringIsEmpty", {7, 3, 'a', 'b'}, "", {invalidRead}},
    {"ShortByteListIsEmpty", {8, 3, 1, 2}, std::vector<std::uint8_t>{}, {invalidRead}},
    {"ShortInt32ListIsEmpty", {9, 2, 0, 0, 1, 0, 0, 0}, std::vector<std::int32_t>{}, {invalidRead}},
    {"ShortInt64ListIsEmpty", {10, 1, 0, 0, 0, 0, 0, 0, 1}, std::vector<std::int64_t>{}, {invalidRead}},
    {"ShortDoubleListIsEmpty", {11, 1, 0}, std::vector<double>{}, {invalidRead}},
    {"ShortFloatListIsEmpty", {14, 1, 0, 0, 1}, std::vector<float>{}, {invalidRead}},
    {"ElementsBehindTheEndAreNull",
     {12, 4, 1, 2},
     EncodableList{true, false, EncodableValue(), EncodableValue()},
     {invalidRead, invalidRead}},
    {"ListBehindTheEndIsOfNulls", {12, 1}, EncodableList{EncodableValue()}, {invalidRead}},
    {"ListWithoutSizeIsEmpty", {12}, EncodableList{}, {invalidRead}},
    {"EachListThatLacksElementsLogs",
     {12, 2, 12, 2, 1},
     EncodableList{EncodableList{true, EncodableValue()}, EncodableValue()},
     {invalidRead, invalidRead}},
    {"EntryBehindTheEndIsNull",
     {13, 2, 1, 2},
     EncodableMap{{EncodableValue(), EncodableValue()}, {true, false}},
     {invalidRead, invalidRead}},
    {"EntriesBehindTheEndAreOne",
     {13, 2},
     EncodableMap{{EncodableValue(), EncodableValue()}},
     {invalidRead, invalidRead, invalidRead, invalidRead}},
    {"LastKeyWithoutValueHasNull", {13, 1, 7, 1, 'k'}, EncodableMap{{"k", EncodableValue()}}, {invalidRead}},
    {"EntryBehindAKeyWithoutValueIsNull",
     {13, 2, 7, 1, 'k'},
     EncodableMap{{EncodableValue(), EncodableValue()}, {"k", EncodableValue()}},
     {invalidRead, invalidRead, invalidRead}},
    {"RepeatedKeyKeepsItsFirstValue", {13, 2, 7, 1, 'k', 1, 7, 1, 'k', 2}, EncodableMap{{"k", true}}, {}},
    {"RepeatedKeyKeepsItsFirstValueOutOfOrder",
     {13, 3, 7, 1, 'b', 1, 7, 1, 'a', 1, 7, 1, 'b', 2},
     EncodableMap{{"a", true}, {"b", true}},
     {}},
    {"KeysOutOfOrderAreOrdered", {13, 2, 7, 1, 'b', 1, 7, 1, 'a', 2}, EncodableMap{{"a", false}, {"b", true}}, {}},
    {"BytesOfAShortReadAreReadAgain", {12, 2, 7, 9, 1}, EncodableList{"", true}, {invalidRead}},
    {"LongSizeOfAFewBytesIsTaken", {7, 255, 1, 0, 0, 0, 'a'}, "a", {}},
    {"BytesBehindTheValueAreIgnored", {1, 99, 99}, true, {}},
};

INSTANTIATE_TEST_SUITE_P(Forms, StandardCodecReading, ::testing::ValuesIn(readingCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(StandardCodecReading, LogsEachTagItDoesNotKnow) {
  for (int tag = 15; tag <= 255; ++tag) {
    CapturedErrors errors;

    const EncodableValue value = read({static_cast<std::uint8_t>(tag)});

    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(errors.lines(), Lines{unknownType + std::to_string(tag)});
  }
}

TEST(StandardCodecReading, TakesADoubleFromAnyPlaceInMemory) {
  const Bytes message = Bytes{6} + Bytes(7, 0) + Bytes{0, 0, 0, 0, 0, 0, 0xF8, 0x3F};
  for (std::size_t shift = 0; shift < 8; ++shift) {
    const Bytes memory = Bytes(shift, 0) + message;
    ByteBufferStreamReader reader(memory.data() + shift, message.size());

    const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);

    EXPECT_EQ(value, EncodableValue(1.5));
  }
}

// A tag of its own, as an extended codec has.
class ExtendedSerializer final : public StandardCodecSerializer {
 public:
  void WriteValue(const EncodableValue& value, ByteStreamWriter& stream) const override {
    if (value.kind() == EncodableKind::custom) {
      stream.WriteByte(200);
    } else {
      StandardCodecSerializer::WriteValue(value, stream);
    }
  }
  EncodableValue ReadValueOfType(std::uint8_t type, ByteStreamReader& stream) const override {
    return type == 200 ? EncodableValue("custom") : StandardCodecSerializer::ReadValueOfType(type, stream);
  }
};

TEST(StandardCodecSerializer, AsksTheExtension_ForNestedValues) {
  const ExtendedSerializer serializer;
  Bytes bytes;
  ByteBufferStreamWriter writer(bytes);
  CapturedErrors errors;

  serializer.WriteValue(EncodableList{CustomEncodableValue(1), EncodableMap{{"k", CustomEncodableValue(2)}}}, writer);
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  const EncodableValue value = serializer.ReadValue(reader);

  EXPECT_EQ(bytes, (Bytes{12, 2, 200, 13, 1, 7, 1, 'k', 200}));
  EXPECT_EQ(value, EncodableValue(EncodableList{"custom", EncodableMap{{"k", "custom"}}}));
  EXPECT_EQ(errors.lines(), Lines{});
}

}  // namespace
}  // namespace orvane::embedding_tests
