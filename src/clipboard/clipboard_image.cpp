#include "clipboard/clipboard_image.h"

#include "clipboard/bitmap_file.h"
#include "clipboard/clipboard_owners.h"

namespace orvane {
namespace {

constexpr const wchar_t* pngFormatName = L"PNG";

// A block of the open clipboard, locked for as long as this stands.
struct ClipboardBlock {
  explicit ClipboardBlock(UINT format) {
    const HGLOBAL block = ::GetClipboardData(format);
    if (block == nullptr) {
      return;
    }
    sizeBytes = ::GlobalSize(block);
    bytes = static_cast<const std::uint8_t*>(::GlobalLock(block));
    if (bytes != nullptr) {
      locked.reset(block);
    }
  }

  SIZE_T sizeBytes = 0;
  const std::uint8_t* bytes = nullptr;  // null: there is no such block, or its lock failed
  LockedBlock locked;
};

std::vector<std::uint8_t> readPng() {
  const UINT format = ::RegisterClipboardFormatW(pngFormatName);
  if (format == 0 || ::IsClipboardFormatAvailable(format) == FALSE) {
    return {};
  }
  const ClipboardBlock block(format);
  return block.bytes == nullptr ? std::vector<std::uint8_t>()
                                : std::vector<std::uint8_t>(block.bytes, block.bytes + block.sizeBytes);
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
  return block.bytes == nullptr ? std::vector<std::uint8_t>() : bitmapFileFromBlock(block.bytes, block.sizeBytes);
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
