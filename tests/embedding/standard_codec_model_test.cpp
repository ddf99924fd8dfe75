#include <gtest/gtest.h>

#include "embedding/captured_errors.h"
#include "embedding/codec_bytes.h"
#include "embedding/random_values.h"
#include "embedding/reference_codec.h"

namespace orvane::embedding_tests {
namespace {

Bytes writtenByModel(const EncodableValue& value) {
  Bytes bytes;
  writeReference(value, bytes);
  return bytes;
}

// Reads `bytes` with the codec and with the model, and compares values and lines.
void expectReadAsByModel(const Bytes& bytes) {
  const ReferenceReading expected = readReference(bytes);
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  CapturedErrors errors;

  const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);

  EXPECT_EQ(errors.lines(), expected.errors);
  EXPECT_EQ(reader.limits().exceeded(), expected.isTooDeep);
  EXPECT_EQ(reader.position(), expected.position);
  // Compared as bytes: two numbers that are equal may differ in their bits.
  EXPECT_EQ(writtenByModel(value), writtenByModel(expected.value));
}

class StandardCodecModel : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(StandardCodecModel, WritesAndReadsRandomValuesAlike) {
  RandomValues random(GetParam());
  for (int round = 0; round < 400; ++round) {
    const EncodableValue value = random.value(5);
    CapturedErrors errors;

    const Bytes bytes = written(value);
    const EncodableValue readBack = read(bytes);

    ASSERT_EQ(bytes, writtenByModel(value));
    ASSERT_EQ(readBack, value);
    ASSERT_EQ(written(readBack), bytes);
    ASSERT_EQ(errors.lines(), Lines{});
  }
}

TEST_P(StandardCodecModel, WritesRandomValuesAlike_InAReply) {
  constexpr std::size_t gatheredBytes = std::size_t{16} * 1024;
  RandomValues random(GetParam());
  for (int round = 0; round < 200; ++round) {
    const EncodableValue value = random.value(5);
    const std::size_t near = 3 + random.below(200);
    ASSERT_EQ(writtenInReply(value, near), written(value, near));
    if (round % 8 == 0) {
      const std::size_t acrossTheEnd = gatheredBytes - random.below(200);
      ASSERT_EQ(writtenInReply(value, acrossTheEnd), written(value, acrossTheEnd));
    }
  }
}

TEST_P(StandardCodecModel, ReadsDamagedMessagesAlike) {
  RandomValues random(GetParam());
  for (int round = 0; round < 400 && !HasFailure(); ++round) {
    Bytes bytes = written(random.value(4));
    for (std::size_t damage = random.below(4) + 1; damage > 0; --damage) {
      bytes[random.below(bytes.size())] = static_cast<std::uint8_t>(random.below(256));
    }

    expectReadAsByModel(bytes);
  }
}

TEST_P(StandardCodecModel, ReadsArbitraryBytesAlike) {
  RandomValues random(GetParam());
  for (int round = 0; round < 800 && !HasFailure(); ++round) {
    Bytes bytes(random.below(64));
    for (std::uint8_t& byte : bytes) {
      byte = static_cast<std::uint8_t>(random.below(round % 2 == 0 ? 16 : 256));
    }

    expectReadAsByModel(bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, StandardCodecModel, ::testing::Range(std::uint64_t{1}, std::uint64_t{9}));

TEST(StandardCodecTruncation, IsReadAsByTheModelAndLogged_AtEachLength) {
  RandomValues random(20);
  for (int round = 0; round < 60 && !::testing::Test::HasFailure(); ++round) {
    const Bytes whole = written(random.value(3));
    if (whole.size() > 600) {
      continue;
    }
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));

      expectReadAsByModel(part);

      EXPECT_FALSE(readReference(part).errors.empty());
    }
  }
}

TEST(StandardCodecTruncation, NeverReadsBehindTheEnd_ForEachKindOfValue) {
  const EncodableMap everything = {{"a", EncodableValue()},
                                   {"b", true},
                                   {"c", 5},
                                   {"d", std::int64_t{5}},
                                   {"e", 1.5},
                                   {"f", std::string(300, 'f')},
                                   {"g", std::vector<std::uint8_t>(260, 1)},
                                   {"h", std::vector<std::int32_t>{1, 2}},
                                   {"i", std::vector<std::int64_t>{1, 2}},
                                   {"j", std::vector<double>{1, 2}},
                                   {"k", EncodableList{1, "x"}},
                                   {"l", EncodableMap{{"x", EncodableMap{}}}},
                                   {"m", std::vector<float>{1, 2}}};
  const Bytes whole = written(everything);

  for (std::size_t length = 0; length < whole.size(); ++length) {
    // A block of exactly this length, so that the sanitizers see a read behind it.
    const auto part = std::make_unique<std::uint8_t[]>(length);
    std::copy_n(whole.begin(), length, part.get());
    ByteBufferStreamReader reader(part.get(), length);
    CapturedErrors errors;

    const EncodableValue value = StandardCodecSerializer::instance().ReadValue(reader);

    EXPECT_FALSE(errors.lines().empty()) << length;
    EXPECT_NE(value, EncodableValue(everything)) << length;
  }
}

}  // namespace
}  // namespace orvane::embedding_tests
