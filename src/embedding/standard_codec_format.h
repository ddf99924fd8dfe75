#pragma once

#include <bit>
#include <cstdint>

namespace orvane {

static_assert(std::endian::native == std::endian::little, "numbers are copied as they lie in memory");

// The first byte of each value.
enum class StandardCodecTag : std::uint8_t {
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

// A size below the first of these is a byte; they themselves announce one of two and of four bytes.
constexpr std::uint8_t twoByteSize = 254;
constexpr std::uint8_t fourByteSize = 255;

constexpr std::uint8_t doubleAlignment = 8;

}  // namespace orvane
