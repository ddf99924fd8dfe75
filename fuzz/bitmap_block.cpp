#include <cstdint>
#include <optional>
#include <vector>

#include "clipboard/bitmap_file.h"
#include "support/find.h"

// The BMP file of a bitmap on the clipboard against a second writing of its rules.
namespace orvane::fuzzing {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint64_t littleEndian(const Bytes& block, std::size_t at, std::size_t count) {
  std::uint64_t number = 0;
  for (std::size_t index = count; index > 0; --index) {
    number = number * 256 + block[at + index - 1];
  }
  return number;
}

// Of a 32-bit number with a sign.
std::uint64_t sizeOf(std::uint64_t number) { return number >= 0x80000000 ? 0x100000000 - number : number; }

// The bytes of the pixels, as far as they lie in the block.
std::optional<std::uint64_t> expectedPixelBytes(const Bytes& block) {
  if (block.size() < 40) {
    return std::nullopt;
  }
  const std::uint64_t headerBytes = littleEndian(block, 0, 4);
  const std::uint64_t width = sizeOf(littleEndian(block, 4, 4));
  const std::uint64_t height = sizeOf(littleEndian(block, 8, 4));
  const std::uint64_t bitsPerPixel = littleEndian(block, 14, 2);
  const std::uint64_t told = littleEndian(block, 20, 4);
  if (headerBytes < 40 || headerBytes > block.size() || width == 0 || height == 0 || bitsPerPixel == 0) {
    return std::nullopt;
  }
  if (told != 0) {
    return told <= block.size() ? std::optional(told) : std::nullopt;
  }
  const std::uint64_t rowBytes = (bitsPerPixel * width + 31) / 32 * 4;
  // Without the product, which may be too great for its type.
  return height <= block.size() / rowBytes ? std::optional(rowBytes * height) : std::nullopt;
}

void append(Bytes& file, std::uint64_t number) {
  for (int index = 0; index < 4; ++index) {
    file.push_back(static_cast<std::uint8_t>(number % 256));
    number /= 256;
  }
}

Bytes expectedFile(const Bytes& block) {
  const auto pixelBytes = expectedPixelBytes(block);
  if (!pixelBytes) {
    return {};
  }
  Bytes file{'B', 'M'};
  append(file, block.size() + 14);
  append(file, 0);
  append(file, block.size() - *pixelBytes + 14);
  file.insert(file.end(), block.begin(), block.end());
  return file;
}

}  // namespace
}  // namespace orvane::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  const fuzzing::Bytes block(data, data + size);
  fuzzing::require(bitmapFileFromBlock(block.data(), block.size()) == fuzzing::expectedFile(block),
                   "the file is that of the rules");
  return 0;
}
