// A BMP file out of the clipboard's bitmap: which blocks are taken, and where their pixels begin.
#include "clipboard/bitmap_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include "support/row_name.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;
__extension__ using Whole = __int128;  // any product of the fields

constexpr std::int32_t leastSigned = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t greatestSigned = std::numeric_limits<std::int32_t>::max();
constexpr std::uint32_t greatestUnsigned = std::numeric_limits<std::uint32_t>::max();

struct Bitmap {
  std::uint32_t headerBytes = 40;
  std::int32_t width = 3;
  std::int32_t height = 2;
  std::uint16_t bitsPerPixel = 24;
  std::uint32_t imageBytes = 0;
};

template <typename Number>
void put(Bytes& bytes, std::size_t at, Number number) {
  for (std::size_t index = 0; index < sizeof number && at + index < bytes.size(); ++index) {
    bytes[at + index] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(number) >> (8 * index));
  }
}

// A block of this size, as much of the header in it as fits; its other bytes differ from place to place.
Bytes blockOf(const Bitmap& bitmap, std::size_t sizeBytes) {
  Bytes block(sizeBytes);
  for (std::size_t at = 0; at < sizeBytes; ++at) block[at] = static_cast<std::uint8_t>(at * 7 + 3);
  put(block, 0, bitmap.headerBytes);
  put(block, 4, static_cast<std::uint32_t>(bitmap.width));
  put(block, 8, static_cast<std::uint32_t>(bitmap.height));
  put(block, 14, bitmap.bitsPerPixel);
  put(block, 20, bitmap.imageBytes);
  return block;
}

Bytes fileWith(std::uint32_t pixelOffset, const Bytes& block) {
  Bytes file{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  put(file, 2, static_cast<std::uint32_t>(block.size() + 14));
  put(file, 10, pixelOffset);
  file.insert(file.end(), block.begin(), block.end());
  return file;
}

Bytes convert(const Bytes& block) { return bitmapFileFromBlock(block.data(), block.size()); }

constexpr int refused = -1;

struct BitmapRow {
  const char* test;
  Bitmap bitmap;
  std::size_t sizeBytes;
  std::int64_t pixelOffset;  // in the file; `refused` for none
};

class BitmapBlocks : public testing::TestWithParam<BitmapRow> {};

TEST_P(BitmapBlocks, BecomeAFileOrNothing) {
  const Bytes block = blockOf(GetParam().bitmap, GetParam().sizeBytes);

  const Bytes expected =
      GetParam().pixelOffset == refused ? Bytes() : fileWith(static_cast<std::uint32_t>(GetParam().pixelOffset), block);
  EXPECT_EQ(convert(block), expected);
}

// Three pixels of 24 bits take 9 bytes of a row of 12.
INSTANTIATE_TEST_SUITE_P(
    Headers, BitmapBlocks,
    testing::Values(
        BitmapRow{"Nothing", {}, 0, refused}, BitmapRow{"OneByte", {}, 1, refused},
        BitmapRow{"OneByteShort", {.width = 1, .height = 1}, 39, refused},
        BitmapRow{"HeaderAlone", {.width = 1, .height = 1}, 40, 40 - 4 + 14},
        BitmapRow{"LargerThanItsBlock", {.headerBytes = 41, .width = 1, .height = 1}, 40, refused},
        BitmapRow{"AsLargeAsItsBlock", {.headerBytes = 64}, 64, 64 - 24 + 14},
        BitmapRow{"TooSmall", {.headerBytes = 39}, 64, refused},
        BitmapRow{"OfTheOldestForm", {.headerBytes = 12}, 64, refused},
        BitmapRow{"OfNoSize", {.headerBytes = 0}, 64, refused},
        BitmapRow{"OfTheGreatestSize", {.headerBytes = greatestUnsigned}, 64, refused},
        BitmapRow{"NegativeWereItSigned", {.headerBytes = 0x80000028}, 64, refused},
        BitmapRow{"OfTheFifthVersion", {.headerBytes = 124}, 124 + 24, 124 + 14},
        BitmapRow{"WithAColourTable", {.width = 4, .height = 2, .bitsPerPixel = 8}, 40 + 1024 + 8, 40 + 1024 + 14}),
    nameOfRow<BitmapRow>);

INSTANTIATE_TEST_SUITE_P(
    Dimensions, BitmapBlocks,
    testing::Values(BitmapRow{"PaddedRows", {}, 40 + 24, 40 + 14},
                    BitmapRow{"OneByteOfPixelsMissing", {}, 40 + 23, 63 - 24 + 14},
                    BitmapRow{"TopDown", {.height = -2}, 40 + 24, 40 + 14},
                    BitmapRow{"NegativeWidth", {.width = -3}, 40 + 24, 40 + 14},
                    BitmapRow{"NoWidth", {.width = 0}, 64, refused}, BitmapRow{"NoHeight", {.height = 0}, 64, refused},
                    BitmapRow{"NoBits", {.bitsPerPixel = 0}, 64, refused},
                    BitmapRow{"NoWidthButAnImageSize", {.width = 0, .imageBytes = 24}, 64, refused},
                    BitmapRow{"NoHeightButAnImageSize", {.height = 0, .imageBytes = 24}, 64, refused},
                    BitmapRow{"NoBitsButAnImageSize", {.bitsPerPixel = 0, .imageBytes = 24}, 64, refused}),
    nameOfRow<BitmapRow>);

INSTANTIATE_TEST_SUITE_P(ImageSizes, BitmapBlocks,
                         testing::Values(BitmapRow{"Given", {.imageBytes = 20}, 64, 64 - 20 + 14},
                                         BitmapRow{"GivenAsOne", {.imageBytes = 1}, 64, 64 - 1 + 14},
                                         BitmapRow{"GivenAsTheWholeBlock", {.imageBytes = 64}, 64, 14},
                                         BitmapRow{"LargerThanTheBlock", {.imageBytes = 65}, 64, refused},
                                         BitmapRow{"TheGreatest", {.imageBytes = greatestUnsigned}, 64, refused},
                                         BitmapRow{"ComputedAsTheWholeBlock", {.width = 1, .height = 16}, 64, 14},
                                         BitmapRow{
                                             "ComputedLargerThanTheBlock", {.width = 1, .height = 17}, 64, refused}),
                         nameOfRow<BitmapRow>);

// 2^31 * 2^31 pixels and more pass 64 bits.
INSTANTIATE_TEST_SUITE_P(
    Lies, BitmapBlocks,
    testing::Values(BitmapRow{"LeastWidth", {.width = leastSigned}, 64, refused},
                    BitmapRow{"LeastHeight", {.height = leastSigned}, 64, refused},
                    BitmapRow{"GreatestWidth", {.width = greatestSigned}, 64, refused},
                    BitmapRow{"GreatestHeight", {.height = greatestSigned}, 64, refused},
                    BitmapRow{"LeastOfBoth", {.width = leastSigned, .height = leastSigned}, 64, refused},
                    BitmapRow{"LeastOfBothAndAllBits",
                              {.width = leastSigned, .height = leastSigned, .bitsPerPixel = 65535},
                              64,
                              refused},
                    // 2^31 * 2^5 bits are 2^33 bytes; 2^31 such rows are 2^64 bytes, which 64 bits show as 0.
                    BitmapRow{"ProductOfExactlyTwoToTheSixtyFour",
                              {.width = leastSigned, .height = leastSigned, .bitsPerPixel = 32},
                              64,
                              refused},
                    // 2^64 + 32 bytes, which 64 bits show as 32.
                    BitmapRow{"ProductThatLooksSmallInSixtyFourBits",
                              {.width = 1'824'726'041, .height = 1'263'665'316, .bitsPerPixel = 64},
                              72,
                              refused},
                    BitmapRow{"AllBits", {.width = 1, .height = 1, .bitsPerPixel = 65535}, 64, refused},
                    BitmapRow{"AllBitsThatAreThere", {.width = 1, .height = 1, .bitsPerPixel = 65535}, 40 + 8192, 54},
                    BitmapRow{"LeastOfBothWithAnImageSize",
                              {.width = leastSigned, .height = leastSigned, .bitsPerPixel = 65535, .imageBytes = 24},
                              64,
                              64 - 24 + 14}),
    nameOfRow<BitmapRow>);

struct RowLengthRow {
  const char* test;
  std::uint16_t bitsPerPixel;
  std::int32_t width;
  std::int64_t bytes;
};

class RowLengths : public testing::TestWithParam<RowLengthRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, RowLengths,
    testing::Values(RowLengthRow{"OneBit", 1, 1, 4}, RowLengthRow{"ThirtyTwoBits", 1, 32, 4},
                    RowLengthRow{"ThirtyThreeBits", 1, 33, 8}, RowLengthRow{"NineOfFourBits", 4, 9, 8},
                    RowLengthRow{"FiveBytes", 8, 5, 8}, RowLengthRow{"ThreeOfSixteenBits", 16, 3, 8},
                    RowLengthRow{"OneOfTwentyFourBits", 24, 1, 4}, RowLengthRow{"FourOfTwentyFourBits", 24, 4, 12},
                    RowLengthRow{"FiveOfThirtyTwoBits", 32, 5, 20}, RowLengthRow{"SevenOddBits", 7, 5, 8}),
    nameOfRow<RowLengthRow>);

TEST_P(RowLengths, AreWholeUnitsOfFourBytes) {
  for (const std::int32_t height : {1, 3, -3}) {
    const std::int64_t imageBytes = GetParam().bytes * std::abs(height);
    const Bytes block = blockOf({.width = GetParam().width, .height = height, .bitsPerPixel = GetParam().bitsPerPixel},
                                40 + 12 + static_cast<std::size_t>(imageBytes));
    EXPECT_EQ(convert(block), fileWith(40 + 12 + 14, block)) << height;
  }
}

TEST(BitmapFile, KeepsANegativeHeight) {
  const Bytes file = convert(blockOf({.height = -2}, 64));

  ASSERT_EQ(file.size(), 78U);
  EXPECT_EQ(Bytes(file.begin() + 14 + 8, file.begin() + 14 + 12), (Bytes{0xFE, 0xFF, 0xFF, 0xFF}));
}

// Only the header's bytes are there: nothing else may be looked at before the refusal.
TEST(BitmapFile, IsRefused_WhenItsSizeWouldNotFitItsOwnField) {
  const Bytes header = blockOf({.imageBytes = 24}, 40);
  for (const std::size_t sizeBytes : {std::size_t{0xFFFFFFF2}, std::size_t{0xFFFFFFFF}, std::size_t{0x100000000},
                                      std::numeric_limits<std::size_t>::max()}) {
    EXPECT_TRUE(bitmapFileFromBlock(header.data(), sizeBytes).empty()) << sizeBytes;
  }
}

// A second converter in plain numbers that nothing overflows.
Bytes convertPlainly(const Bytes& block) {
  const auto number = [&block](std::size_t at, int bytes) {
    Whole value = 0;
    for (int index = bytes - 1; index >= 0; --index) value = value * 256 + block[at + static_cast<std::size_t>(index)];
    return value;
  };
  const auto size = [&number](std::size_t at) {
    const Whole value = number(at, 4);
    return value >= Whole{1} << 31 ? (Whole{1} << 32) - value : value;
  };
  const Whole blockBytes = static_cast<Whole>(block.size());
  if (blockBytes < 40 || number(0, 4) < 40 || number(0, 4) > blockBytes) return {};
  const Whole bits = number(14, 2);
  if (size(4) == 0 || size(8) == 0 || bits == 0) return {};
  Whole imageBytes = number(20, 4);
  if (imageBytes == 0) imageBytes = (bits * size(4) + 31) / 32 * 4 * size(8);
  if (imageBytes > blockBytes) return {};
  return fileWith(static_cast<std::uint32_t>(blockBytes - imageBytes + 14), block);
}

using Random = std::mt19937_64;

template <typename Number>
Number choose(Random& random, std::initializer_list<Number> numbers) {
  return *(numbers.begin() + random() % numbers.size());
}

std::int32_t randomLength(Random& random) {
  const auto any = static_cast<std::int32_t>(random());
  const auto few = static_cast<std::int32_t>(random() % 21) - 10;
  return choose<std::int32_t>(random, {few, few, few, few, 1, -1, 0, 32, leastSigned, leastSigned + 1, greatestSigned,
                                       0x10000, -0x10000, 0x40000000, any});
}

Bitmap randomBitmap(Random& random, std::uint32_t sizeBytes) {
  Bitmap bitmap;
  const auto any = static_cast<std::uint32_t>(random());
  bitmap.headerBytes = choose<std::uint32_t>(
      random, {40, 40, 40, 40, 40, 39, 41, 108, 124, sizeBytes, sizeBytes + 1, 0, greatestUnsigned, any});
  bitmap.width = randomLength(random);
  bitmap.height = randomLength(random);
  bitmap.bitsPerPixel =
      choose<std::uint16_t>(random, {0, 1, 2, 4, 8, 16, 24, 32, 33, 65535, static_cast<std::uint16_t>(any)});
  bitmap.imageBytes = choose<std::uint32_t>(
      random, {0, 0, 0, 0, 0, 1, sizeBytes, sizeBytes + 1, sizeBytes / 2, 0x7FFFFFFF, greatestUnsigned, any});
  return bitmap;
}

TEST(BitmapFile, IsThatOfAPlainConverter_WhenTheHeaderIsRandom) {
  Random random(20260411);
  int acceptedCount = 0;
  constexpr int roundCount = 100'000;
  for (int round = 0; round < roundCount; ++round) {
    const auto sizeBytes = static_cast<std::uint32_t>(random() % 10 == 0 ? random() % 40 : 40 + random() % 161);
    const Bytes block = blockOf(randomBitmap(random, sizeBytes), sizeBytes);
    const Bytes file = convert(block);
    ASSERT_EQ(file, convertPlainly(block)) << "round " << round;
    acceptedCount += file.empty() ? 0 : 1;
  }
  EXPECT_GT(acceptedCount, roundCount / 20);
  EXPECT_LT(acceptedCount, roundCount / 2);
}

TEST(BitmapFile, IsThatOfAPlainConverter_WhenTheBytesAreAny) {
  Random random(20260412);
  for (int round = 0; round < 20'000; ++round) {
    Bytes block(40 + random() % 161);
    std::generate(block.begin(), block.end(), [&random] { return static_cast<std::uint8_t>(random()); });
    put(block, 0, std::uint32_t{40});
    if (random() % 2 == 0) put(block, 20, static_cast<std::uint32_t>(random() % 220));
    ASSERT_EQ(convert(block), convertPlainly(block)) << "round " << round;
  }
}

}  // namespace
}  // namespace orvane
