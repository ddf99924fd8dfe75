#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace orvane::simulation {

// A movable block of exactly the size asked for, so that an access beyond its end shows.
struct GlobalBlock {
  std::unique_ptr<std::byte[]> memory;  // null for a block without a byte
  std::size_t sizeBytes = 0;
  int locks = 0;
  bool isLeftLocked = false;  // an unlocking was refused
  bool isClipboards = false;  // the clipboard owns it, and the host may only look at it
};

// A block of the clipboard's own. No handle is ever given out twice.
HGLOBAL makeClipboardBlock(std::span<const std::uint8_t> bytes);
// Ends the run when there is no such block.
GlobalBlock& globalBlockFor(std::string_view call, HGLOBAL handle);
std::vector<std::uint8_t> bytesOf(const GlobalBlock& block);
// A block of the host becomes the clipboard's.
void handToClipboard(GlobalBlock& block);
// The clipboard lets its block go. One that is still locked ends the run.
void dropClipboardBlock(std::string_view call, HGLOBAL handle);

}  // namespace orvane::simulation
