#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "embedding/captured_errors.h"
#include "embedding/codec_bytes.h"

namespace orvane::embedding_tests {
namespace {

struct WritingCase {
  const char* name;
  EncodableValue value;
  Bytes bytes;  // at the start of a message
};

class StandardCodec : public ::testing::TestWithParam<WritingCase> {};

TEST_P(StandardCodec, WritesExactlyTheseBytes) {
  CapturedErrors errors;

  const Bytes bytes = written(GetParam().value);

  EXPECT_EQ(bytes, GetParam().bytes);
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST_P(StandardCodec, ReadsTheValueBack) {
  CapturedErrors errors;

  const EncodableValue value = read(GetParam().bytes);

  EXPECT_EQ(value, GetParam().value);
  EXPECT_EQ(errors.lines(), Lines{});
}

// Multiples of 8, so that the bytes are those of the start: near the start of a reply, and on both
// sides of the place where its writer has gathered as much as it can hold.
constexpr std::size_t gatheredBytes = std::size_t{16} * 1024;
constexpr std::size_t alignedOffsets[] = {8, gatheredBytes - 8, gatheredBytes};

TEST_P(StandardCodec, WritesTheSameBytes_InAReply) {
  CapturedErrors errors;
  for (const std::size_t offset : alignedOffsets) {
    EXPECT_EQ(writtenInReply(GetParam().value, offset), GetParam().bytes) << offset;
  }
  EXPECT_EQ(errors.lines(), Lines{});
}

const WritingCase writingCases[] = {
    {"Null", {}, {0}},
    {"True", true, {1}},
    {"False", false, {2}},
    {"Int32", std::int32_t{0x01020304}, {3, 4, 3, 2, 1}},
    {"NegativeInt32", std::int32_t{-2}, {3, 0xFE, 0xFF, 0xFF, 0xFF}},
    {"LeastInt32", std::numeric_limits<std::int32_t>::min(), {3, 0, 0, 0, 0x80}},
    {"Int64", std::int64_t{0x0102030405060708}, {4, 8, 7, 6, 5, 4, 3, 2, 1}},
    {"SmallInt64", std::int64_t{-1}, {4, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
    {"Double", 1.5, {6, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F}},
    {"EmptyString", "", {7, 0}},
    {"String", "h\xC3\xA9", {7, 3, 'h', 0xC3, 0xA9}},
    {"StringWithZero", std::string("a\0b", 3), {7, 3, 'a', 0, 'b'}},
    {"EmptyByteList", std::vector<std::uint8_t>{}, {8, 0}},
    {"ByteList", std::vector<std::uint8_t>{0, 255}, {8, 2, 0, 255}},
    {"EmptyInt32List", std::vector<std::int32_t>{}, {9, 0}},
    {"Int32List", std::vector<std::int32_t>{1, -1}, {9, 2, 0, 0, 1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}},
    {"EmptyInt64List", std::vector<std::int64_t>{}, {10, 0}},
    {"Int64List", std::vector<std::int64_t>{2}, {10, 1, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0}},
    {"EmptyDoubleList", std::vector<double>{}, {11, 0}},
    {"DoubleList", std::vector<double>{1.0}, {11, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F}},
    {"EmptyList", EncodableList{}, {12, 0}},
    {"List", EncodableList{EncodableValue(), true, "a"}, {12, 3, 0, 1, 7, 1, 'a'}},
    {"EmptyMap", EncodableMap{}, {13, 0}},
    {"Map", EncodableMap{{"a", 1}}, {13, 1, 7, 1, 'a', 3, 1, 0, 0, 0}},
    {"EmptyFloatList", std::vector<float>{}, {14, 0}},
    {"FloatList", std::vector<float>{1.0F}, {14, 1, 0, 0, 0, 0, 0x80, 0x3F}},
    {"NestedContainers",
     EncodableMap{{"l", EncodableList{EncodableMap{}, EncodableList{2}}}},
     {13, 1, 7, 1, 'l', 12, 2, 13, 0, 12, 1, 3, 2, 0, 0, 0}},
};

INSTANTIATE_TEST_SUITE_P(Forms, StandardCodec, ::testing::ValuesIn(writingCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(StandardCodecWriting, OrdersMapsByKeyBytes) {
  const EncodableMap map = {{"y", 1}, {"x", 2}, {"success", 3}};

  const Bytes bytes = written(map);

  const Bytes expected = Bytes{13, 3, 7, 7} + bytesOf("success") + Bytes{3, 3, 0, 0, 0} + Bytes{7, 1, 'x'} +
                         Bytes{3, 2, 0, 0, 0} + Bytes{7, 1, 'y'} + Bytes{3, 1, 0, 0, 0};
  EXPECT_EQ(bytes, expected);
  EXPECT_EQ(writtenInReply(map, 8), expected);
}

struct SizeCase {
  std::size_t size;
  Bytes prefix;
};

class StandardCodecSize : public ::testing::TestWithParam<SizeCase> {};

TEST_P(StandardCodecSize, IsWrittenInAsFewBytesAsAllowed_ForTexts) {
  const std::string text(GetParam().size, 't');

  const Bytes bytes = written(text);

  EXPECT_EQ(bytes, Bytes{7} + GetParam().prefix + bytesOf(text));
  EXPECT_EQ(read(bytes), EncodableValue(text));
}

TEST_P(StandardCodecSize, IsWrittenInAsFewBytesAsAllowed_ForLists) {
  const EncodableList list(GetParam().size, EncodableValue(true));

  const Bytes bytes = written(list);

  EXPECT_EQ(bytes, Bytes{12} + GetParam().prefix + Bytes(GetParam().size, 1));
  EXPECT_EQ(read(bytes), EncodableValue(list));
}

TEST_P(StandardCodecSize, IsFollowedByThePadding_ForNumberLists) {
  const std::vector<std::int32_t> numbers(GetParam().size, 7);

  const Bytes bytes = written(numbers);

  Bytes expected = Bytes{9} + GetParam().prefix;
  while (!numbers.empty() && expected.size() % 4 != 0) {
    expected.push_back(0);
  }
  EXPECT_EQ(bytes, expected + repeated(GetParam().size, {7, 0, 0, 0}));
  EXPECT_EQ(read(bytes), EncodableValue(numbers));
}

TEST_P(StandardCodecSize, IsTheSame_InAReply) {
  const EncodableValue values[] = {std::string(GetParam().size, 't'), std::vector<std::uint8_t>(GetParam().size, 1),
                                   std::vector<std::int32_t>(GetParam().size, 7),
                                   std::vector<double>(GetParam().size, 1.5),
                                   EncodableList(GetParam().size, EncodableValue(true))};
  for (const EncodableValue& value : values) {
    for (const std::size_t offset : alignedOffsets) {
      EXPECT_EQ(writtenInReply(value, offset), written(value)) << value.index() << ' ' << offset;
    }
  }
}

const SizeCase sizeCases[] = {
    {0, {0}},
    {1, {1}},
    {252, {252}},
    {253, {253}},
    {254, {254, 254, 0}},
    {255, {254, 255, 0}},
    {256, {254, 0, 1}},
    {65535, {254, 0xFF, 0xFF}},
    {65536, {255, 0, 0, 1, 0}},
    {65537, {255, 1, 0, 1, 0}},
};

INSTANTIATE_TEST_SUITE_P(Bounds, StandardCodecSize, ::testing::ValuesIn(sizeCases),
                         [](const auto& instance) { return std::to_string(instance.param.size); });

struct AlignedForm {
  EncodableValue value;
  std::size_t headSize;  // what stands in front of the padding
  std::size_t alignment;
};

const AlignedForm alignedForms[] = {
    {1.5, 1, 8},
    {std::vector<std::int32_t>{1}, 2, 4},
    {std::vector<std::int64_t>{1}, 2, 8},
    {std::vector<double>{1.5}, 2, 8},
    {std::vector<float>{1.5F}, 2, 4},
};

TEST(StandardCodecWriting, AlignsFromTheStartOfTheBuffer_AtEachOffset) {
  for (const AlignedForm& form : alignedForms) {
    for (std::size_t offset = 0; offset <= 16; ++offset) {
      const Bytes bytes = written(form.value, offset);
      const std::size_t start = offset + form.headSize;
      const std::size_t padding = (form.alignment - start % form.alignment) % form.alignment;
      const std::size_t payload = form.alignment;  // one element, and as large as its alignment

      ASSERT_EQ(bytes.size(), form.headSize + padding + payload) << form.value.index() << ' ' << offset;
      EXPECT_EQ(Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(form.headSize),
                      bytes.end() - static_cast<std::ptrdiff_t>(payload)),
                Bytes(padding, 0));
    }
  }
}

TEST(StandardCodecWriting, AlignsFromTheStartOfTheReply_AtEachOffset) {
  for (const AlignedForm& form : alignedForms) {
    for (std::size_t offset = 3; offset <= 24; ++offset) {
      EXPECT_EQ(writtenInReply(form.value, offset), written(form.value, offset)) << form.value.index() << ' ' << offset;
    }
    for (std::size_t offset = gatheredBytes - 17; offset <= gatheredBytes; ++offset) {
      EXPECT_EQ(writtenInReply(form.value, offset), written(form.value, offset)) << form.value.index() << ' ' << offset;
    }
  }
}

TEST(StandardCodecWriting, PadsADoubleAtOffsetNineToSixteen) {
  const Bytes bytes = written(1.0, 8);  // its tag stands at 8

  EXPECT_EQ(bytes, (Bytes{6} + Bytes(7, 0) + Bytes{0, 0, 0, 0, 0, 0, 0xF0, 0x3F}));
}

TEST(StandardCodecWriting, WritesNoPadding_ForEmptyNumberLists) {
  for (std::size_t offset = 0; offset <= 8; ++offset) {
    EXPECT_EQ(written(std::vector<double>{}, offset), (Bytes{11, 0}));
    EXPECT_EQ(written(std::vector<float>{}, offset), (Bytes{14, 0}));
  }
}

TEST(StandardCodecWriting, WritesNullAndLogs_ForCustomValues) {
  const EncodableList list = {CustomEncodableValue(5), true};
  CapturedErrors errors;

  const Bytes bytes = written(list);

  EXPECT_EQ(bytes, (Bytes{12, 2, 0, 1}));
  EXPECT_EQ(errors.lines(), Lines{"Unhandled custom type in StandardCodecSerializer::WriteValue. "
                                  "Custom types require codec extensions."});
}

TEST(StandardCodecWriting, WritesNullAndLogsOnce_ForACustomValueInAReply) {
  for (const std::size_t offset : {std::size_t{8}, gatheredBytes - 8, gatheredBytes + 8}) {
    CapturedErrors errors;

    const Bytes bytes = writtenInReply(EncodableList{CustomEncodableValue(5), true}, offset);

    EXPECT_EQ(bytes, (Bytes{12, 2, 0, 1})) << offset;
    EXPECT_EQ(errors.lines(), Lines{"Unhandled custom type in StandardCodecSerializer::WriteValue. "
                                    "Custom types require codec extensions."});
  }
}

}  // namespace
}  // namespace orvane::embedding_tests
