#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "clipboard/clipboard_owners.h"

namespace orvane {

// What text and HTML of the clipboard may take at most.
inline constexpr std::size_t greatestTextBlockBytes = std::size_t{8} * 1024 * 1024;

// Inclusive.
struct BlockSizes {
  std::size_t leastBytes = 0;
  std::size_t greatestBytes = std::numeric_limits<std::size_t>::max();
};

// A block of the open clipboard by GetClipboardData, locked for as long as this stands. One whose
// GlobalSize is outside of `sizes` isn't locked.
class ClipboardBlock {
 public:
  explicit ClipboardBlock(UINT format, const BlockSizes& sizes = {});

  // Empty when there is no such block, it isn't of these sizes, or GlobalLock failed.
  [[nodiscard]] std::span<const std::uint8_t> bytes() const noexcept { return bytes_; }

 private:
  std::span<const std::uint8_t> bytes_;
  LockedBlock locked_;
};

}  // namespace orvane
