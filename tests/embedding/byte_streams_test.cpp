#include <gtest/gtest.h>

#include <array>

#include "embedding/byte_buffer_stream_reader.h"
#include "embedding/byte_buffer_stream_writer.h"
#include "embedding/captured_errors.h"

namespace orvane::embedding_tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(ByteBufferStreamReader, GivesTheBytesInOrder_UpToTheEnd) {
  const Bytes bytes = {1, 2, 3, 4};
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  CapturedErrors errors;

  const std::uint8_t first = reader.ReadByte();
  Bytes rest(3);
  reader.ReadBytes(rest.data(), rest.size());

  EXPECT_EQ(first, 1);
  EXPECT_EQ(rest, (Bytes{2, 3, 4}));
  EXPECT_EQ(reader.remaining(), 0U);
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST(ByteBufferStreamReader, GivesZeroAndLogs_WhenReadingAByteBeyondTheEnd) {
  ByteBufferStreamReader reader(nullptr, 0);
  CapturedErrors errors;

  const std::uint8_t byte = reader.ReadByte();

  EXPECT_EQ(byte, 0);
  EXPECT_EQ(reader.position(), 0U);
  EXPECT_EQ(errors.lines(), Lines{invalidRead});
}

TEST(ByteBufferStreamReader, LeavesDestinationAndPosition_WhenTooFewBytesRemain) {
  const Bytes bytes = {1, 2, 3};
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  reader.ReadByte();
  std::array<std::uint8_t, 3> destination = {7, 8, 9};
  CapturedErrors errors;

  reader.ReadBytes(destination.data(), destination.size());

  EXPECT_EQ(destination, (std::array<std::uint8_t, 3>{7, 8, 9}));
  EXPECT_EQ(reader.position(), 1U);
  EXPECT_EQ(errors.lines(), Lines{invalidRead});
}

TEST(ByteBufferStreamReader, ReadsNothingSilently_WhenNoBytesAreAskedFor) {
  ByteBufferStreamReader reader(nullptr, 0);
  CapturedErrors errors;

  reader.ReadBytes(nullptr, 0);

  EXPECT_EQ(errors.lines(), Lines{});
}

TEST(ByteBufferStreamReader, AlignsFromTheStart_AtEachOffset) {
  const Bytes bytes(32);
  for (std::size_t offset = 0; offset <= 16; ++offset) {
    for (const std::uint8_t alignment : {std::uint8_t{4}, std::uint8_t{8}}) {
      ByteBufferStreamReader reader(bytes.data(), bytes.size());
      Bytes skipped(offset);
      reader.ReadBytes(skipped.data(), offset);

      reader.ReadAlignment(alignment);

      EXPECT_EQ(reader.position() % alignment, 0U);
      EXPECT_LT(reader.position() - offset, alignment);
    }
  }
}

TEST(ByteBufferStreamReader, AlignsNoFartherThanToTheEnd) {
  const Bytes bytes = {1, 2, 3};
  ByteBufferStreamReader reader(bytes.data(), bytes.size());
  reader.ReadByte();
  CapturedErrors errors;

  reader.ReadAlignment(8);
  const std::uint8_t byte = reader.ReadByte();

  EXPECT_EQ(reader.position(), 3U);
  EXPECT_EQ(byte, 0);
  EXPECT_EQ(errors.lines(), Lines{invalidRead});
}

TEST(ByteBufferStreamWriter, AppendsBehindWhatIsThere) {
  Bytes bytes = {9};
  ByteBufferStreamWriter writer(bytes);
  const Bytes more = {2, 3};

  writer.WriteByte(1);
  writer.WriteBytes(more.data(), more.size());
  writer.WriteBytes(nullptr, 0);

  EXPECT_EQ(bytes, (Bytes{9, 1, 2, 3}));
}

TEST(ByteBufferStreamWriter, PadsWithZeros_AtEachOffset) {
  for (std::size_t offset = 0; offset <= 16; ++offset) {
    for (const std::uint8_t alignment : {std::uint8_t{4}, std::uint8_t{8}}) {
      Bytes bytes(offset, 0xEE);
      ByteBufferStreamWriter writer(bytes);

      writer.WriteAlignment(alignment);

      Bytes expected(offset, 0xEE);
      expected.resize((offset + alignment - 1) / alignment * alignment, 0);
      EXPECT_EQ(bytes, expected);
    }
  }
}

TEST(DecodingLimits, GrantNoMoreElementsThanTheMessageHasBytes) {
  DecodingLimits limits(10);

  const std::size_t first = limits.grantElements(4);
  const std::size_t second = limits.grantElements(1000000000);
  const std::size_t third = limits.grantElements(1);

  EXPECT_EQ(first, 4U);
  EXPECT_EQ(second, 6U);
  EXPECT_EQ(third, 0U);
}

TEST(DecodingLimits, GrantAThousandLackingElements_ToContainersThatDeclareNoMore) {
  DecodingLimits limits(10);

  const bool isGrantedToTheLargest = limits.grantLackingElement(1000);
  const bool isGrantedToALarger = limits.grantLackingElement(1001);
  int granted = 1;
  while (granted < 2000 && limits.grantLackingElement(1)) {
    ++granted;
  }

  EXPECT_TRUE(isGrantedToTheLargest);
  EXPECT_FALSE(isGrantedToALarger);
  EXPECT_EQ(granted, 1000);
}

TEST(DecodingLimits, StayExceeded_AfterTheLevelTooDeepHasEnded) {
  DecodingLimits limits(0);
  const auto nest = [&limits](int depth, const auto& self) -> void {
    if (depth > 0) {
      const DecodingLimits::Level level(limits);
      self(depth - 1, self);
    }
  };

  nest(DecodingLimits::maximumDepth, nest);
  const bool isExceededAtTheBound = limits.exceeded();
  nest(DecodingLimits::maximumDepth + 1, nest);

  EXPECT_FALSE(isExceededAtTheBound);
  EXPECT_TRUE(limits.exceeded());
}

}  // namespace
}  // namespace orvane::embedding_tests
