#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace orvane {

// The clipboard's image as the bytes of a whole PNG or BMP file, in one opening of the clipboard for
// `owner`. Empty when the clipboard can't be opened or holds no usable image.
std::vector<std::uint8_t> readClipboardImage(HWND owner);

}  // namespace orvane
