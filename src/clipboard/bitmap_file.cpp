#include "clipboard/bitmap_file.h"

#include <cstring>
#include <limits>
#include <optional>

namespace orvane {
namespace {

constexpr std::size_t fileHeaderBytes = 14;
constexpr std::size_t leastInfoHeaderBytes = 40;
constexpr std::size_t fileSizeOffset = 2;
constexpr std::size_t pixelOffsetOffset = 10;
constexpr std::uint64_t rowUnitBits = 32;
constexpr std::uint64_t rowUnitBytes = 4;

// The fields of a BITMAPINFOHEADER that tell how large the pixels are.
struct BitmapInfo {
  std::uint32_t headerBytes = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::uint16_t bitsPerPixel = 0;
  std::uint32_t imageBytes = 0;  // 0: to be computed
};

template <typename Number>
Number readAt(const std::uint8_t* block, std::size_t offset) {
  Number number{};
  std::memcpy(&number, block + offset, sizeof number);
  return number;
}

BitmapInfo readInfo(const std::uint8_t* block) {
  BitmapInfo info;
  info.headerBytes = readAt<std::uint32_t>(block, 0);
  info.width = readAt<std::int32_t>(block, 4);
  info.height = readAt<std::int32_t>(block, 8);
  info.bitsPerPixel = readAt<std::uint16_t>(block, 14);
  info.imageBytes = readAt<std::uint32_t>(block, 20);
  return info;
}

std::uint64_t magnitude(std::int32_t number) {
  const std::int64_t wide = number;
  return static_cast<std::uint64_t>(wide < 0 ? -wide : wide);
}

// Rows padded to whole 32-bit units; nullopt when the number doesn't fit.
std::optional<std::uint64_t> computedImageBytes(const BitmapInfo& info) {
  // At most 2^16 * 2^31 bits in a row and 2^31 rows: the row fits, the product may not.
  const std::uint64_t rowBytes =
      (info.bitsPerPixel * magnitude(info.width) + rowUnitBits - 1) / rowUnitBits * rowUnitBytes;
  const std::uint64_t rows = magnitude(info.height);
  if (rowBytes > std::numeric_limits<std::uint64_t>::max() / rows) {
    return std::nullopt;
  }
  return rowBytes * rows;
}

// The bytes of the pixels; nullopt when the block can't be such a bitmap.
std::optional<std::uint64_t> pixelBytes(const std::uint8_t* block, std::size_t sizeBytes) {
  if (sizeBytes < leastInfoHeaderBytes) {
    return std::nullopt;
  }
  const BitmapInfo info = readInfo(block);
  const bool hasHeader = info.headerBytes >= leastInfoHeaderBytes && info.headerBytes <= sizeBytes;
  if (!hasHeader || info.width == 0 || info.height == 0 || info.bitsPerPixel == 0) {
    return std::nullopt;
  }
  const std::optional<std::uint64_t> bytes =
      info.imageBytes != 0 ? std::optional<std::uint64_t>(info.imageBytes) : computedImageBytes(info);
  const bool isInside = bytes && *bytes != 0 && *bytes <= sizeBytes;
  const bool isFileSizeHeld = sizeBytes <= std::numeric_limits<std::uint32_t>::max() - fileHeaderBytes;
  return isInside && isFileSizeHeld ? bytes : std::nullopt;
}

void writeAt(std::vector<std::uint8_t>& file, std::size_t offset, std::uint64_t number) {
  const auto field = static_cast<std::uint32_t>(number);
  std::memcpy(file.data() + offset, &field, sizeof field);
}

}  // namespace

std::vector<std::uint8_t> bitmapFileFromBlock(const std::uint8_t* block, std::size_t sizeBytes) {
  const std::optional<std::uint64_t> bytes = pixelBytes(block, sizeBytes);
  if (!bytes) {
    return {};
  }
  std::vector<std::uint8_t> file(fileHeaderBytes + sizeBytes);
  file[0] = 'B';
  file[1] = 'M';
  writeAt(file, fileSizeOffset, file.size());
  writeAt(file, pixelOffsetOffset, sizeBytes - *bytes + fileHeaderBytes);
  std::memcpy(file.data() + fileHeaderBytes, block, sizeBytes);
  return file;
}

}  // namespace orvane
