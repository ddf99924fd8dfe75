#include "clipboard/clipboard_image.h"

#include "clipboard/bitmap_file.h"
#include "clipboard/clipboard_block.h"
#include "clipboard/clipboard_owners.h"

namespace orvane {
namespace {

constexpr const wchar_t* pngFormatName = L"PNG";

std::vector<std::uint8_t> readPng() {
  const UINT format = ::RegisterClipboardFormatW(pngFormatName);
  if (format == 0 || ::IsClipboardFormatAvailable(format) == FALSE) {
    return {};
  }
  const ClipboardBlock block(format);
  return {block.bytes().begin(), block.bytes().end()};
}

UINT availableBitmapFormat() {
  for (const UINT format : {UINT{CF_DIBV5}, UINT{CF_DIB}}) {
    if (::IsClipboardFormatAvailable(format) != FALSE) {
      return format;
    }
  }
  return 0;
}

// There is no way back from a bad CF_DIBV5 to CF_DIB.
std::vector<std::uint8_t> readBitmap() {
  const UINT format = availableBitmapFormat();
  if (format == 0) {
    return {};
  }
  const ClipboardBlock block(format);
  return bitmapFileFromBlock(block.bytes().data(), block.bytes().size());
}

}  // namespace

std::vector<std::uint8_t> readClipboardImage(HWND owner) {
  const OpenedClipboard clipboard(::OpenClipboard(owner) != FALSE);
  if (!clipboard) {
    return {};
  }
  std::vector<std::uint8_t> png = readPng();
  return png.empty() ? readBitmap() : png;
}

}  // namespace orvane
