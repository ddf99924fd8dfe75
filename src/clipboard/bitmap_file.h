#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvane {

// A BMP file of a device-independent bitmap as the clipboard holds it: a BITMAPFILEHEADER and the
// whole block behind it. The pixels count as the block's end. Empty when the header is too short,
// contradicts the block's size or describes no pixel.
std::vector<std::uint8_t> bitmapFileFromBlock(const std::uint8_t* block, std::size_t sizeBytes);

}  // namespace orvane
