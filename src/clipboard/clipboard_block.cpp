#include "clipboard/clipboard_block.h"

namespace orvane {

ClipboardBlock::ClipboardBlock(UINT format, const BlockSizes& sizes) {
  const HGLOBAL block = ::GetClipboardData(format);
  if (block == nullptr) {
    return;
  }
  const std::size_t sizeBytes = ::GlobalSize(block);
  if (sizeBytes < sizes.leastBytes || sizeBytes > sizes.greatestBytes) {
    return;
  }
  const auto* const bytes = static_cast<const std::uint8_t*>(::GlobalLock(block));
  if (bytes != nullptr) {
    locked_.reset(block);
    bytes_ = {bytes, sizeBytes};
  }
}

}  // namespace orvane
